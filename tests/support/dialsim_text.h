// The simulator's texts as strings and vectors.
#pragma once

#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "simulator/dialsim.h"

inline std::string TextOf(std::size_t (*copy_out)(char*, std::size_t)) {
    std::string text(copy_out(nullptr, 0), '\0');
    copy_out(text.data(), text.size());
    text.pop_back();  // the terminator
    return text;
}

inline std::string Journal() { return TextOf(dialsim_journal); }
inline std::string LeakReport() { return TextOf(dialsim_accounts); }
inline std::string Raised() { return TextOf(dialsim_raised); }

inline std::string StoreText(const char* store) {
    std::string text(dialsim_store(store, nullptr, 0), '\0');
    dialsim_store(store, text.data(), text.size());
    text.pop_back();  // the terminator
    return text;
}

inline std::string MenuText(std::uint64_t window) {
    std::string text(dialsim_menu(window, nullptr, 0), '\0');
    dialsim_menu(window, text.data(), text.size());
    text.pop_back();  // the terminator
    return text;
}

// The kinds of the system items in the window's menu.
inline std::vector<std::int32_t> SystemItemsOf(std::uint64_t window) {
    std::vector<std::int32_t> kinds(dialsim_system_items(window, nullptr, 0));
    dialsim_system_items(window, kinds.data(), static_cast<std::uint32_t>(kinds.size()));
    return kinds;
}

// The bytes of the store's file; empty without a file.
inline std::optional<std::string> StoreFile(const char* store) {
    const std::size_t size = dialsim_store_file(store, nullptr, 0);
    if (size == 0) {
        return std::nullopt;
    }
    std::string content(size, '\0');
    dialsim_store_file(store, content.data(), content.size());
    content.pop_back();  // the terminator
    return content;
}

inline bool PutStoreFile(const char* store, const std::string& content) {
    return dialsim_put_store_file(store, content.data(), content.size());
}

inline std::vector<std::string> LinesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}
