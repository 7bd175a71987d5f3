// Compares the probe's table of requirements with the published interfaces.
#include "examples/dialcheck/needs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "interfaces/published_facts.h"

namespace brindle::abi {
namespace {

std::string TextOf(const Identifier& id) {
    char text[37];
    const auto& last = id.data4;
    std::snprintf(text, sizeof text, "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x",
                  static_cast<unsigned>(id.data1), id.data2, id.data3, last[0], last[1], last[2], last[3],
                  last[4], last[5], last[6], last[7]);
    return text;
}

TEST(DialcheckNeeds, HaveThePublishedNamesAndIdentifiers) {
    const auto facts = PublishedFacts();
    const auto published = [&](const std::string& prefix) {
        return std::any_of(facts.begin(), facts.end(),
                           [&](const std::string& fact) { return fact.starts_with(prefix); });
    };
    for (const Need& need : kNeeds) {
        const std::string identifier =
            std::string("identifier ") + need.interface_name + " " + TextOf(need.identifier);
        EXPECT_TRUE(published(identifier)) << identifier;
        const std::string named = std::string("class ") + need.class_name + " ";
        EXPECT_TRUE(published(named)) << named;
    }
}

// The library uses these kinds only as factories, so each one has a line.
TEST(DialcheckNeeds, HaveEveryPublishedFactory) {
    std::set<std::string> required;
    for (const Need& need : kNeeds) {
        required.insert(need.interface_name);
    }
    for (const std::string& fact : PublishedFacts()) {
        if (!fact.starts_with("identifier ")) {
            continue;
        }
        const std::string name = fact.substr(11, fact.rfind(' ') - 11);
        const bool factory = name.ends_with("Statics") || name.ends_with("Statics2") ||
                             name.ends_with("Interop") || name.ends_with("Factory");
        EXPECT_EQ(required.contains(name), factory) << name;
    }
}

}  // namespace
}  // namespace brindle::abi
