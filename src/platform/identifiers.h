// Interface identifiers as compile-time values: parsed from text, and name-based for parameterised
// interfaces.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/types.h"

namespace brindle::abi {

// Text with its length in its type; std::string is not a constant expression on every supported compiler.
template <std::size_t N>
struct FixedText {
    char Chars[N + 1]{};

    constexpr FixedText() = default;
    constexpr FixedText(const char (&text)[N + 1]) {
        for (std::size_t i = 0; i < N; ++i)
            Chars[i] = text[i];
    }
    constexpr operator std::string_view() const { return {Chars, N}; }
};

template <std::size_t N>
FixedText(const char (&)[N]) -> FixedText<N - 1>;

template <std::size_t N, std::size_t M>
constexpr FixedText<N + M> operator+(const FixedText<N>& left, const FixedText<M>& right) {
    FixedText<N + M> both;
    for (std::size_t i = 0; i < N; ++i)
        both.Chars[i] = left.Chars[i];
    for (std::size_t i = 0; i < M; ++i)
        both.Chars[N + i] = right.Chars[i];
    return both;
}

template <std::size_t N, std::size_t M>
constexpr auto operator+(const FixedText<N>& left, const char (&right)[M]) {
    return left + FixedText(right);
}

// Not operator==: that of the platform's headers is no constant expression.
constexpr bool SameId(const GUID& left, const GUID& right) {
    for (std::size_t i = 0; i < 8; ++i) {
        if (left.Data4[i] != right.Data4[i])
            return false;
    }
    return left.Data1 == right.Data1 && left.Data2 == right.Data2 && left.Data3 == right.Data3;
}

// The sixteen bytes in text order, which differs from memory order for the first three members.
using IdBytes = std::array<std::uint8_t, 16>;

constexpr GUID IdFromBytes(const IdBytes& bytes) {
    GUID id{};
    for (std::size_t i = 0; i < 4; ++i)
        id.Data1 = (id.Data1 << 8) | bytes[i];
    id.Data2 = static_cast<std::uint16_t>((bytes[4] << 8) | bytes[5]);
    id.Data3 = static_cast<std::uint16_t>((bytes[6] << 8) | bytes[7]);
    for (std::size_t i = 0; i < 8; ++i)
        id.Data4[i] = bytes[8 + i];
    return id;
}

constexpr IdBytes BytesOf(const GUID& id) {
    IdBytes bytes{};
    for (std::size_t i = 0; i < 4; ++i)
        bytes[i] = static_cast<std::uint8_t>(id.Data1 >> (24 - 8 * i));
    bytes[4] = static_cast<std::uint8_t>(id.Data2 >> 8);
    bytes[5] = static_cast<std::uint8_t>(id.Data2);
    bytes[6] = static_cast<std::uint8_t>(id.Data3 >> 8);
    bytes[7] = static_cast<std::uint8_t>(id.Data3);
    for (std::size_t i = 0; i < 8; ++i)
        bytes[8 + i] = id.Data4[i];
    return bytes;
}

namespace detail {

constexpr std::size_t IdTextLength = 36;

constexpr bool IsHyphenPlace(std::size_t place) {
    return place == 8 || place == 13 || place == 18 || place == 23;
}

// Not constexpr: a call stops the compilation, and its name is the error message.
inline void MalformedIdentifier() {}

constexpr std::uint8_t HexValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    MalformedIdentifier();
    return 0;
}

}  // namespace detail

consteval GUID Id(std::string_view text) {
    if (text.size() != detail::IdTextLength)
        detail::MalformedIdentifier();
    IdBytes bytes{};
    std::size_t digits = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (detail::IsHyphenPlace(place)) {
            if (text[place] != '-')
                detail::MalformedIdentifier();
            continue;
        }
        auto& byte = bytes[digits++ / 2];
        byte = static_cast<std::uint8_t>((byte << 4) | detail::HexValue(text[place]));
    }
    return IdFromBytes(bytes);
}

// In lower case and braces, as type signatures require.
constexpr FixedText<detail::IdTextLength + 2> IdText(const GUID& id) {
    constexpr std::string_view digits = "0123456789abcdef";
    FixedText<detail::IdTextLength + 2> text;
    std::size_t at = 0;
    text.Chars[at++] = '{';
    for (const std::uint8_t byte : BytesOf(id)) {
        if (detail::IsHyphenPlace(at - 1))
            text.Chars[at++] = '-';
        text.Chars[at++] = digits[byte >> 4];
        text.Chars[at++] = digits[byte & 15];
    }
    text.Chars[at] = '}';
    return text;
}

// For name-based identifiers; not for security.
class Sha1 {
public:
    constexpr void Add(std::uint8_t byte) {
        block_[length_++ % block_.size()] = byte;
        if (length_ % block_.size() == 0)
            MixBlock();
    }

    constexpr void Add(std::string_view text) {
        for (const char c : text)
            Add(static_cast<std::uint8_t>(c));
    }

    constexpr std::array<std::uint8_t, 20> Finish() {
        const std::uint64_t bits = length_ * 8;
        Add(std::uint8_t{0x80});
        while (length_ % block_.size() != block_.size() - sizeof(bits))
            Add(std::uint8_t{0});
        for (int shift = 56; shift >= 0; shift -= 8)
            Add(static_cast<std::uint8_t>(bits >> shift));

        std::array<std::uint8_t, 20> digest{};
        for (std::size_t i = 0; i < digest.size(); ++i)
            digest[i] = static_cast<std::uint8_t>(state_[i / 4] >> (24 - 8 * (i % 4)));
        return digest;
    }

private:
    constexpr void MixBlock() {
        std::array<std::uint32_t, 80> words{};
        for (std::size_t i = 0; i < block_.size(); ++i)
            words[i / 4] = (words[i / 4] << 8) | block_[i];
        for (std::size_t i = 16; i < words.size(); ++i)
            words[i] = std::rotl(words[i - 3] ^ words[i - 8] ^ words[i - 14] ^ words[i - 16], 1);

        auto [a, b, c, d, e] = state_;
        for (std::size_t i = 0; i < words.size(); ++i) {
            std::uint32_t mixed = 0;
            if (i < 20)
                mixed = ((b & c) | (~b & d)) + 0x5A827999;
            else if (i < 40)
                mixed = (b ^ c ^ d) + 0x6ED9EBA1;
            else if (i < 60)
                mixed = ((b & c) | (b & d) | (c & d)) + 0x8F1BBCDC;
            else
                mixed = (b ^ c ^ d) + 0xCA62C1D6;
            const std::uint32_t next = std::rotl(a, 5) + mixed + e + words[i];
            e = d;
            d = c;
            c = std::rotl(b, 30);
            b = a;
            a = next;
        }
        state_ = {state_[0] + a, state_[1] + b, state_[2] + c, state_[3] + d, state_[4] + e};
    }

    std::array<std::uint32_t, 5> state_{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
    std::array<std::uint8_t, 64> block_{};
    std::uint64_t length_ = 0;
};

// A name-based UUID, RFC 4122 version 5.
constexpr GUID NameBasedId(const GUID& name_space, std::string_view name) {
    Sha1 hash;
    for (const std::uint8_t byte : BytesOf(name_space))
        hash.Add(byte);
    hash.Add(name);
    const auto digest = hash.Finish();

    IdBytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = digest[i];
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x50);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return IdFromBytes(bytes);
}

constexpr GUID ParameterisedId(std::string_view signature) {
    return NameBasedId(Id("11f47ad5-7b73-42c0-abae-878b1e16adee"), signature);
}

}  // namespace brindle::abi
