// Reader of the file of published facts, one a line.
#pragma once

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

namespace brindle::abi {

inline std::string Published() {
    std::string text;
    if (std::FILE* file = std::fopen(PUBLISHED_INTERFACES, "rb")) {
        char bytes[4096];
        while (const std::size_t count = std::fread(bytes, 1, sizeof bytes, file))
            text.append(bytes, count);
        std::fclose(file);
    }
    return text;
}

inline std::vector<std::string> PublishedFacts() {
    std::vector<std::string> facts;
    std::istringstream lines(Published());
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line[0] != '#')
            facts.push_back(line);
    }
    return facts;
}

}  // namespace brindle::abi
