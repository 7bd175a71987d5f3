// Reads and writes settings from the command line, through the library:
//
//   settings get-text RESOURCE KEY          settings set-text RESOURCE KEY TEXT
//   settings get-int RESOURCE KEY           settings set-int RESOURCE KEY NUMBER
//
// get-text and get-int print the value. The exit status is 1 for an absent setting and 2 for a usage error.
#include <brindle.h>

#include <charconv>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "text.h"

namespace {

enum Status { kDone = 0, kAbsent = 1, kUsageError = 2 };

int Absent() {
    std::fputs("settings: no such setting\n", stderr);
    return kAbsent;
}

int GetText(const Text& resource, const Text& key) {
    // The host owns the text.
    const std::unique_ptr<BrindleChar, decltype(&brindle_free)> text(
        get_string_from_storage(resource.c_str(), key.c_str()), &brindle_free);
    if (!text) {
        return Absent();
    }
    std::printf("%s\n", ToUtf8(text.get()).c_str());
    return kDone;
}

int GetInt(const Text& resource, const Text& key) {
    const int32_t number = get_int_from_storage(resource.c_str(), key.c_str());
    if (number == INT32_MIN) {
        return Absent();
    }
    std::printf("%d\n", number);
    return kDone;
}

int UsageError() {
    std::fputs(
        "usage: settings get-text|get-int RESOURCE KEY\n"
        "       settings set-text RESOURCE KEY TEXT\n"
        "       settings set-int RESOURCE KEY NUMBER\n",
        stderr);
    return kUsageError;
}

int SetInt(const Text& resource, const Text& key, const Text& value) {
    const std::string digits = ToUtf8(value);
    int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return UsageError();
    }
    // A setter that returns 0 may have stored nothing: reading the value shows it.
    return set_int_in_storage(resource.c_str(), key.c_str(), number) < 0 ? kAbsent : kDone;
}

int SetText(const Text& resource, const Text& key, const Text& value) {
    return set_string_in_storage(resource.c_str(), key.c_str(), value.c_str()) < 0 ? kAbsent : kDone;
}

int Execute(const std::vector<Text>& words) {
    const std::string command = words.size() < 4 ? "" : ToUtf8(words[1]);
    if (words.size() == 4 && command == "get-text") {
        return GetText(words[2], words[3]);
    }
    if (words.size() == 4 && command == "get-int") {
        return GetInt(words[2], words[3]);
    }
    if (words.size() == 5 && command == "set-text") {
        return SetText(words[2], words[3], words[4]);
    }
    if (words.size() == 5 && command == "set-int") {
        return SetInt(words[2], words[3], words[4]);
    }
    return UsageError();
}

}  // namespace

int main(int argc, char** argv) {
    if (initialize() == 1) {
        std::fputs("settings: the Windows Runtime is not available\n", stderr);
        return kUsageError;
    }
    const int status = Execute(Arguments(argc, argv));
    uninit();
    return status;
}
