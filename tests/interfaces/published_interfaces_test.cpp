// Compares the published binary interface, as a file of facts, with the declared one.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "declared_facts.h"
#include "published_facts.h"

namespace brindle::abi {
namespace {

std::set<std::string> SetOf(const std::vector<std::string>& facts) { return {facts.begin(), facts.end()}; }

TEST(PublishedInterfaces, EveryPublishedFactIsDeclared) {
    const auto published = PublishedFacts();
    const auto declared = SetOf(DeclaredFacts());
    EXPECT_FALSE(published.empty()) << PUBLISHED_INTERFACES;
    for (const auto& fact : published)
        EXPECT_TRUE(declared.contains(fact)) << fact;
}

TEST(PublishedInterfaces, EveryDeclaredFactIsPublished) {
    const auto published = SetOf(PublishedFacts());
    for (const auto& fact : DeclaredFacts())
        EXPECT_TRUE(published.contains(fact)) << fact;
}

TEST(PublishedInterfaces, NoTwoShareAnIdentifier) {
    std::map<std::string, std::string> owners;
    for (const auto& fact : DeclaredFacts()) {
        if (!fact.starts_with("identifier ") && !fact.starts_with("instance "))
            continue;
        const auto [owner, isNew] = owners.emplace(fact.substr(fact.rfind(' ')), fact);
        EXPECT_TRUE(isNew) << fact << " and " << owner->second;
    }
}

}  // namespace
}  // namespace brindle::abi
