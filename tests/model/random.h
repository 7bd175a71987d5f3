// Random numbers that are the same with every standard library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace model {

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    // SplitMix64.
    std::uint64_t Bits() {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15U);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }
    // From 0 to count - 1; the modulo bias does not matter here.
    std::uint32_t Below(std::uint64_t count) { return static_cast<std::uint32_t>(Bits() % count); }
    bool OneIn(std::uint32_t count) { return Below(count) == 0; }

    template <class T>
    T Of(std::initializer_list<T> values) {
        return *(values.begin() + Below(values.size()));
    }
    template <class T>
    const T& Of(const std::vector<T>& values) {
        return values[Below(values.size())];
    }

private:
    std::uint64_t state_;
};

}  // namespace model
