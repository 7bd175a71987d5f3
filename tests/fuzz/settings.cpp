// Arbitrary texts and numbers through the four settings functions, compared with a model of the three stores.
#include <map>
#include <optional>
#include <utility>
#include <variant>

#include "fuzz.h"
#include "unicode.h"

namespace {

constexpr std::int32_t kAbsent = INT32_MIN;
constexpr std::size_t kNameUnits = 255;
constexpr std::size_t kValueUnits = 4096;
// Applied to up to 63 units: just above the limits.
constexpr std::size_t kNameDoublings = 3;
constexpr std::size_t kValueDoublings = 7;

// An entry of a type that the library neither writes nor reads.
struct Foreign {
    bool operator==(const Foreign&) const = default;
};
using Entry = std::variant<WideText, std::int32_t, Foreign>;

bool IsBlank(BrindleChar c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The leading number of a text, saturated to the range of int32_t.
std::int32_t NumberIn(const WideText& text) {
    const auto* c = text.c_str();
    while (IsBlank(*c)) {
        ++c;
    }
    const bool negative = *c == '-';
    c += negative || *c == '+' ? 1 : 0;
    std::int64_t number = 0;
    for (; *c >= '0' && *c <= '9'; ++c) {
        number = std::min<std::int64_t>(number * 10 + (*c - '0'), std::int64_t{1} << 31);
    }
    return static_cast<std::int32_t>(negative ? -number : std::min<std::int64_t>(number, INT32_MAX));
}

// The roaming or the local settings of an application.
class Container {
public:
    // An entry of another type stays until it is replaced. A readable one is removed first, even where the
    // new value is then refused.
    void Write(const WideText& key, const Entry& entry) {
        const auto old = entries_.find(key);
        if (old != entries_.end() && old->second.index() == entry.index()) {
            if (old->second == entry) {
                return;
            }
            entries_.erase(old);
        }
        Put(key, entry);
    }
    bool Put(const WideText& key, const Entry& entry) {
        const auto* text = std::get_if<WideText>(&entry);
        if (key.size() > kNameUnits || (text != nullptr && text->size() > kValueUnits)) {
            return false;
        }
        entries_[key] = entry;
        return true;
    }
    std::optional<WideText> Text(const WideText& key) const {
        const auto* text = Find<WideText>(key);
        return text == nullptr ? std::nullopt : std::optional(*text);
    }
    std::int32_t Number(const WideText& key) const {
        const auto* number = Find<std::int32_t>(key);
        return number == nullptr ? kAbsent : *number;
    }
    std::size_t Size() const { return entries_.size(); }

private:
    template <class Kind>
    const Kind* Find(const WideText& key) const {
        const auto found = entries_.find(key);
        return found == entries_.end() ? nullptr : std::get_if<Kind>(&found->second);
    }

    std::map<WideText, Entry> entries_;
};

class Vault {
public:
    // A credential with the same key of another resource blocks the write.
    void Write(const WideText& resource, const WideText& key, const WideText& text) {
        const auto old = texts_.find({resource, key});
        if (old != texts_.end() ? old->second == text : HasCredential(key)) {
            return;
        }
        if (old != texts_.end()) {
            texts_.erase(old);
        }
        Put(resource, key, text);
    }
    bool Put(const WideText& resource, const WideText& key, const WideText& text) {
        if (resource.empty() || key.empty() || text.empty()) {
            return false;
        }
        texts_[{resource, key}] = text;
        return true;
    }
    std::optional<WideText> Text(const WideText& resource, const WideText& key) const {
        const auto found = texts_.find({resource, key});
        return found == texts_.end() ? std::nullopt : std::optional(found->second);
    }
    std::size_t Size() const { return texts_.size(); }

private:
    bool HasCredential(const WideText& key) const {
        return std::any_of(texts_.begin(), texts_.end(),
                           [&](const auto& entry) { return entry.first.second == key; });
    }

    std::map<std::pair<WideText, WideText>, WideText> texts_;
};

struct Stores {
    Container roaming;
    Container local;
    Vault vault;
    bool packaged = false;

    std::optional<WideText> Text(const WideText& resource, const WideText& key) const {
        std::optional<WideText> text = packaged ? roaming.Text(key) : std::nullopt;
        if (!text) {
            text = vault.Text(resource, key);
        }
        return text || !packaged ? text : local.Text(key);
    }
    std::int32_t Number(const WideText& resource, const WideText& key) const {
        std::int32_t number = packaged ? roaming.Number(key) : kAbsent;
        if (const auto text = vault.Text(resource, key); text && number == kAbsent) {
            number = NumberIn(*text);
        }
        return number != kAbsent || !packaged ? number : local.Number(key);
    }
};

std::size_t LinesIn(const char* store) { return LinesOf(StoreText(store)).size(); }

// A text after conversion to UTF-8 and back.
WideText InUtf8(const WideText& text) { return EncodeUtf16(DecodeUtf16(text)); }

class Session {
public:
    explicit Session(Input& input) : input_(input) {
        for (WideText& name : names_) {
            name = input_.Text(kNameDoublings);
        }
        SetPackaged();
    }

    void RunAction() {
        using Action = void (Session::*)();
        constexpr Action kActions[] = {&Session::SetText,   &Session::SetText,       &Session::SetNumber,
                                       &Session::PutText,   &Session::PutNumber,     &Session::PutForeign,
                                       &Session::SetDigits, &Session::PutCredential, &Session::SetPackaged};
        (this->*kActions[input_.Below(std::size(kActions))])();
    }
    // Reads texts with every pair of names as resource and key, and numbers with every key.
    void Compare() const {
        for (const WideText& key : names_) {
            for (const WideText& resource : names_) {
                CompareText(resource, key);
            }
            CompareNumber(names_[0], key);
        }
        CheckSame(LinesIn("roaming"), expected_.roaming.Size(), "roaming settings");
        CheckSame(LinesIn("local"), expected_.local.Size(), "local settings");
        CheckSame(LinesIn("vault"), expected_.vault.Size(), "credentials");
    }

private:
    void CompareText(const WideText& resource, const WideText& key) const {
        const std::optional<WideText> text = expected_.Text(resource, key);
        BrindleChar* const read = get_string_from_storage(resource.c_str(), key.c_str());
        Check((read != nullptr) == text.has_value(), "a stored text is found");
        if (read != nullptr) {
            Check(read == *text, "the text read is the stored text");
            std::free(read);
        }
    }
    void CompareNumber(const WideText& resource, const WideText& key) const {
        CheckSame(get_int_from_storage(resource.c_str(), key.c_str()), expected_.Number(resource, key),
                  "the number read");
    }

    void SetText() { Set(input_.Text(kValueDoublings)); }
    void SetDigits() { Set(Digits()); }
    void Set(const WideText& text) {
        const WideText& resource = Name();
        const WideText& key = Name();
        CheckSame(set_string_in_storage(resource.c_str(), key.c_str(), text.c_str()), 0,
                  "set_string_in_storage");
        if (expected_.packaged) {
            expected_.roaming.Write(key, text);
            expected_.local.Write(key, text);
        }
        expected_.vault.Write(resource, key, text);
    }
    // Values around the range limits, with prefixes and suffixes.
    WideText Digits() {
        constexpr const char* kBefore[] = {"", "-", "+", " ", "\t\v-", "--", " + "};
        constexpr const char* kBehind[] = {"", " ", "x", ".5", "0000000000"};
        const std::string before = kBefore[input_.Below(std::size(kBefore))];
        const std::int64_t around = std::int64_t{0x7FFFFFFE} + input_.Byte() % 4;
        const std::int64_t number = input_.Flag() ? around : std::int64_t{input_.Number()};
        return Utf16Of(before + std::to_string(number) + kBehind[input_.Below(std::size(kBehind))]);
    }
    void SetNumber() {
        const WideText& key = Name();
        const std::int32_t number = Number();
        CheckSame(set_int_in_storage(Name().c_str(), key.c_str(), number), 0, "set_int_in_storage");
        if (expected_.packaged) {
            expected_.roaming.Write(key, number);
            expected_.local.Write(key, number);
        }
    }

    // Prepares the stores.
    void PutText() {
        const std::string text = input_.Bytes();
        Put("String", text, Utf16Of(text));
    }
    void PutNumber() {
        const std::int32_t number = Number();
        Put("Int32", std::to_string(number), number);
    }
    void PutForeign() {
        constexpr const char* kTypes[] = {"UInt32", "Int64",  "UInt64",   "UInt8",
                                          "Int16",  "UInt16", "composite"};
        Put(kTypes[input_.Below(std::size(kTypes))], "7", Foreign());
    }
    void Put(const char* type, const std::string& value, const Entry& entry) {
        const WideText key = Name();
        const bool roaming = input_.Flag();
        const bool put =
            dialsim_put_setting(roaming ? "roaming" : "local", Utf8Of(key).c_str(), type, value.c_str());
        Container& container = roaming ? expected_.roaming : expected_.local;
        CheckSame(put, container.Put(InUtf8(key), entry), "putting a setting");
    }
    void PutCredential() {
        const WideText& resource = Name();
        const WideText& key = Name();
        const std::string password = input_.Bytes();
        const bool put =
            dialsim_put_credential(Utf8Of(resource).c_str(), Utf8Of(key).c_str(), password.c_str());
        CheckSame(put, expected_.vault.Put(InUtf8(resource), InUtf8(key), Utf16Of(password)),
                  "putting a credential");
    }
    void SetPackaged() {
        expected_.packaged = input_.Flag();
        dialsim_set_packaged(expected_.packaged);
    }

    const WideText& Name() { return names_[input_.Below(std::size(names_))]; }
    // One in eight is the number that means "absent".
    std::int32_t Number() {
        return input_.Below(8) == 0 ? kAbsent : static_cast<std::int32_t>(input_.Number());
    }

    Input& input_;
    WideText names_[3];
    Stores expected_;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Run run;
    const MemoryStores stores;
    const InitializedLibrary started;
    Input input(bytes, size);
    Session session(input);
    for (int actions = 0; actions < 16 && !input.Empty(); ++actions) {
        session.RunAction();
    }
    session.Compare();
    return 0;
}
