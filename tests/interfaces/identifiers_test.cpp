#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/identifiers.h"
#include "platform/interfaces/collections.h"
#include "platform/interfaces/devices.h"
#include "platform/interfaces/ui_input.h"

namespace brindle::abi {
namespace {

std::string TextOf(const GUID& id) {
    char text[37];
    std::snprintf(text, sizeof(text), "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x",
                  static_cast<unsigned>(id.Data1), id.Data2, id.Data3, id.Data4[0], id.Data4[1], id.Data4[2],
                  id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6], id.Data4[7]);
    return text;
}

std::string DigestOf(std::string_view text) {
    Sha1 hash;
    hash.Add(text);
    std::string hex;
    for (const std::uint8_t byte : hash.Finish()) {
        char pair[3];
        std::snprintf(pair, sizeof(pair), "%02x", byte);
        hex += pair;
    }
    return hex;
}

template <FixedText Text>
concept IsIdentifier = requires {
    typename std::bool_constant<SameId(Id(Text), Id(Text))>;
};

static_assert(IsIdentifier<"1b0535c9-57ad-45c1-9d79-ad5c34360513">);
static_assert(IsIdentifier<"1B0535C9-57AD-45C1-9D79-AD5C34360513">);
static_assert(!IsIdentifier<"">);
static_assert(!IsIdentifier<"1b0535c9-57ad-45c1-9d79-ad5c3436051">);
static_assert(!IsIdentifier<"1b0535c9-57ad-45c1-9d79-ad5c343605133">);
static_assert(!IsIdentifier<"1b0535c9-57ad-45c1-9d79-ad5c3436051g">);
static_assert(!IsIdentifier<"1b0535c9-57ad-45c1-9d79ad-5c34360513">);
static_assert(!IsIdentifier<"1b0535c9057ad-45c1-9d79-ad5c34360513">);
static_assert(!IsIdentifier<"{1b0535c9-57ad-45c1-9d79-ad5c343605}">);

TEST(Identifiers, TextBecomesTheMembersInPublishedOrder) {
    constexpr GUID id = Id("01234567-89ab-cdef-0f1e-2d3c4b5a6978");
    EXPECT_EQ(id.Data1, 0x01234567u);
    EXPECT_EQ(id.Data2, 0x89AB);
    EXPECT_EQ(id.Data3, 0xCDEF);
    EXPECT_EQ(id.Data4[0], 0x0F);
    EXPECT_EQ(id.Data4[7], 0x78);
    EXPECT_EQ(TextOf(id), "01234567-89ab-cdef-0f1e-2d3c4b5a6978");
}

TEST(Identifiers, UpperCaseTextMeansTheSame) {
    EXPECT_TRUE(
        SameId(Id("C80FC98D-AD0B-4C9C-8F2F-136A2373A6BA"), Id("c80fc98d-ad0b-4c9c-8f2f-136a2373a6ba")));
}

TEST(Identifiers, OneDifferenceAnywhereMakesAnotherIdentifier) {
    constexpr GUID id = Id("01234567-89ab-cdef-0f1e-2d3c4b5a6978");
    EXPECT_TRUE(SameId(id, id));
    for (std::size_t i = 0; i < 16; ++i) {
        auto bytes = BytesOf(id);
        bytes[i] ^= 1;
        EXPECT_FALSE(SameId(id, IdFromBytes(bytes))) << "byte " << i;
    }
}

TEST(Identifiers, SignaturesWriteThemInLowerCaseAndBraces) {
    constexpr auto text = IdText(Id("1B0535C9-57AD-45C1-9D79-AD5C34360513"));
    EXPECT_EQ(std::string_view(text), "{1b0535c9-57ad-45c1-9d79-ad5c34360513}");
}

TEST(Sha1, KnownTextsHaveTheirKnownDigests) {
    EXPECT_EQ(DigestOf(""), "da39a3ee5e6b4b0d3255bfef95601890afd80709");
    EXPECT_EQ(DigestOf("abc"), "a9993e364706816aba3e25717850c26c9cd0d89d");
    EXPECT_EQ(DigestOf("\xC3\xA9"), "bf15be717ac1b080b4f1c456692825891ff5073d");
}

TEST(Sha1, LengthsAroundTheEndOfABlockArePadded) {
    const struct {
        std::size_t Length;
        const char* Digest;
    } rows[] = {
        {55, "c1c8bbdc22796e28c0e15163d20899b65621d65a"},   {56, "c2db330f6083854c99d4b5bfb6e8f29f201be699"},
        {63, "03f09f5b158a7a8cdad920bddc29b81c18a551f5"},   {64, "0098ba824b5c16427bd7a1122a5a442a25ec644d"},
        {119, "ee971065aaa017e0632a8ca6c77bb3bf8b1dfc56"},  {120, "f34c1488385346a55709ba056ddd08280dd4c6d6"},
        {1000, "291e9a6c66994949b57ba5e650361e98fc36b1ba"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DigestOf(std::string(row.Length, 'a')), row.Digest) << row.Length;
}

TEST(NameBasedIdentifiers, KnownNamesOfAnotherNamespaceHaveTheirKnownIdentifiers) {
    constexpr GUID dns = Id("6ba7b810-9dad-11d1-80b4-00c04fd430c8");
    EXPECT_EQ(TextOf(NameBasedId(dns, "www.example.com")), "2ed6657d-e927-568b-95e1-2665a8aea6a2");
    EXPECT_EQ(TextOf(NameBasedId(dns, "")), "4ebd0208-8328-5d69-8c44-ec50939c0967");
    EXPECT_EQ(TextOf(NameBasedId(dns, std::string(200, 'x'))), "ddcc691a-b8e2-53e5-b059-6a232874b2eb");
}

TEST(ParameterisedIdentifiers, AVectorOfMenuItemsHasThePublishedSignature) {
    EXPECT_EQ(std::string_view(Signature<IVector<RadialControllerMenuItem>>::Text),
              "pinterface({913337e9-11a1-4345-a3a2-4e7f956e222d};"
              "rc(Windows.UI.Input.RadialControllerMenuItem;{c80fc98d-ad0b-4c9c-8f2f-136a2373a6ba}))");
}

TEST(ParameterisedIdentifiers, AClassWhoseDefaultIsParameterisedNestsThatSignature) {
    EXPECT_EQ(std::string_view(Signature<DeviceInformationCollection>::Text),
              "rc(Windows.Devices.Enumeration.DeviceInformationCollection;"
              "pinterface({bbe1fa4c-b0e3-4583-baef-1f1b2e483e56};"
              "rc(Windows.Devices.Enumeration.DeviceInformation;{aba0fb95-4398-489d-8e44-e6130927011f})))");
}

}  // namespace
}  // namespace brindle::abi
