// Arbitrary store files. A damaged file is never changed and has no entries. A valid one keeps its entries
// when one is added.
#include <cstring>
#include <nlohmann/json.hpp>
#include <set>

#include "fuzz.h"
#include "support/utf16.h"

namespace {

constexpr const char* kStores[] = {"roaming", "local", "vault"};

constexpr char kDamaged[] = "damaged\n";
constexpr char kNewKey[] = "a new key";
constexpr BrindleChar kNewKeyWide[] = UTF16("a new key");

// Reads by all functions; no content may crash them.
void ReadAll() {
    for (const BrindleChar* key : {kNewKeyWide, UTF16("key"), UTF16("")}) {
        std::free(get_string_from_storage(UTF16("host"), key));
        get_int_from_storage(UTF16("host"), key);
    }
}

bool Put(const char* store) {
    return std::strcmp(store, "vault") == 0 ? dialsim_put_credential("host", kNewKey, "value")
                                            : dialsim_put_setting(store, kNewKey, "String", "value");
}

void CheckDamaged(const char* store, const std::string& content) {
    Check(!Put(store), "a damaged store refuses entries");
    CheckSame(set_string_in_storage(UTF16("host"), kNewKeyWide, UTF16("value")), 0, "set_string_in_storage");
    CheckSame(set_int_in_storage(UTF16("host"), kNewKeyWide, 7), 0, "set_int_in_storage");
    ReadAll();
    Check(StoreFile(store) == content, "a damaged store is unchanged");
}

// Three members for each entry and one around them: any other member would be lost with the next change.
void CheckMembers(const std::string& listing, const std::string& content) {
    using Json = nlohmann::json;
    std::size_t members = 0;
    const auto count = [&members](int, Json::parse_event_t event, const Json&) {
        members += event == Json::parse_event_t::key ? 1U : 0U;
        return true;
    };
    Check(!Json::parse(content, count).is_discarded(), "a valid file is JSON");
    CheckSame(members, 1 + 3 * LinesOf(listing).size(), "members");
}

// A listed integer is in the file literally.
void CheckNumbers(const std::string& listing, const std::string& content) {
    for (const std::string& line : LinesOf(listing)) {
        const std::string word = line.substr(line.rfind(' ') + 1);
        if (word.find_first_not_of("-0123456789") == std::string::npos) {
            Check(content.find(word) != std::string::npos, "a listed number is in the file: " + line);
        }
    }
}

void CheckValid(const char* store, const std::string& content, const std::string& before) {
    CheckMembers(before, content);
    CheckNumbers(before, content);
    ReadAll();
    Check(StoreFile(store) == content, "reading changes nothing");

    Check(Put(store), "an entry is added to a valid store");
    const std::string after = StoreText(store);
    const std::vector<std::string> lines = LinesOf(after);
    const std::set<std::string> present(lines.begin(), lines.end());
    std::size_t kept = 0;
    for (const std::string& line : LinesOf(before)) {
        kept += present.contains(line) ? 1U : 0U;
    }
    CheckSame(kept, LinesOf(before).size(), "entries that stayed");
    CheckSame(lines.size(), kept + 1, "entries with the new one");

    Check(Put(store), "the entry is replaced");
    CheckSame(StoreText(store), after, "the store after the replacement");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Run run;
    const MemoryStores stores;
    const InitializedLibrary started;
    Input input(bytes, size);
    const char* const store = kStores[input.Below(std::size(kStores))];
    const std::string content = input.Rest();
    dialsim_set_packaged(true);
    Check(PutStoreFile(store, content), "the file is written");
    const std::string listing = StoreText(store);
    if (listing == kDamaged) {
        CheckDamaged(store, content);
    } else if (listing.find(kNewKey) == std::string::npos) {
        CheckValid(store, content, listing);
    }
    return 0;
}
