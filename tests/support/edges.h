// Edge values of types, and pairs that differ in few bits, for parameterized tests.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

// Exceeds the capacity of every fixed-size table in the platform and the library.
inline constexpr std::uint32_t kVeryMany = 5000;

inline constexpr std::uint32_t kNumbersAtTheEdges[] = {0,       1,          0xFFFF,     0x10000,
                                                       0x10001, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};

template <class Number>
struct SimilarPair {
    const char* name;
    Number first;
    Number second;
};

template <class Number>
void PrintTo(const SimilarPair<Number>& pair, std::ostream* stream) {
    *stream << pair.name;
}

// Names an instance of a parameterized test.
inline constexpr auto kNameOfPair = [](const auto& pair_info) { return std::string(pair_info.param.name); };

using SimilarNumbers = SimilarPair<std::uint32_t>;
inline constexpr SimilarNumbers kSimilarNumbers[] = {
    {"BitZero", 0x12345678, 0x12345679},
    {"BitFifteen", 7, 0x8007},
    {"BitSixteen", 7, 0x10007},
    {"TopBit", 0x12345678, 0x92345678},
    {"TopBitAlone", 0, 0x80000000},
    {"AllBitsButTheTop", 0x7FFFFFFF, 0xFFFFFFFF},
    {"UpperHalf", 0x0001ABCD, 0xFFFEABCD},
};
