// Shared parts of the fuzzing targets: the input reader, checks that abort, and a fresh simulator for each
// input.
#pragma once

#include <brindle.h>

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/dialsim_text.h"
#include "support/utf16.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

inline void Check(bool passed, const std::string& what) {
    if (!passed) {
        std::fprintf(stderr, "check failed: %s\n", what.c_str());
        std::abort();
    }
}

inline void CheckSame(const std::string& actual, const std::string& expected, const char* what) {
    Check(actual == expected, std::string(what) + "\n--- actual\n" + actual + "\n--- expected\n" + expected);
}

template <std::integral Actual, std::integral Expected>
void CheckSame(Actual actual, Expected expected, const char* what) {
    CheckSame(std::to_string(actual), std::to_string(expected), what);
}

// Reads the input in order; at its end, zeros.
class Input {
public:
    Input(const std::uint8_t* bytes, std::size_t size) : next_(bytes), end_(bytes + size) {}

    bool Empty() const { return next_ == end_; }
    std::uint8_t Byte() { return Empty() ? std::uint8_t{0} : *next_++; }
    bool Flag() { return (Byte() & 1) != 0; }
    std::size_t Below(std::size_t count) { return Byte() % count; }
    std::uint32_t Number() {
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i) {
            number = (number << 8) | Byte();
        }
        return number;
    }
    // Small numbers are as frequent as large ones: equal numbers must be likely.
    std::uint32_t SmallOrAnyNumber() {
        const std::uint8_t first = Byte();
        return first < 0xF0 ? first % 8 : Number();
    }

    // A text without NUL, of up to 64,512 units. The first byte gives the number of units, their size of one
    // or two bytes, and whether the text is doubled repeatedly. Targets with lower limits allow fewer
    // doublings, to save time.
    WideText Text(std::size_t max_doublings = 10) {
        const std::uint8_t shape = Byte();
        WideText text;
        for (int i = 0; i < (shape & 0x3F); ++i) {
            const unsigned high = (shape & 0x80) != 0 ? Byte() : 0U;
            text += static_cast<BrindleChar>((high << 8) | Byte());
        }
        text.erase(std::min(text.find(BrindleChar{}), text.size()));
        if ((shape & 0x40) != 0) {
            for (std::size_t doublings = std::min(Below(11), max_doublings); doublings > 0; --doublings) {
                text += WideText(text);
            }
        }
        return text;
    }
    // The same in bytes, without doubling.
    std::string Bytes() {
        std::string bytes(Byte(), '\0');
        std::generate(bytes.begin(), bytes.end(), [this] { return static_cast<char>(Byte()); });
        return bytes.substr(0, bytes.find('\0'));
    }
    std::string Rest() {
        std::string rest(next_, end_);
        next_ = end_;
        return rest;
    }

private:
    const std::uint8_t* next_;
    const std::uint8_t* const end_;
};

// The run of one input: a fresh simulator, and a leak check at the end. It leaves no allocation behind:
// otherwise libFuzzer runs the input twice for its leak detection.
class Run {
public:
    Run() { dialsim_reset(); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() {
        CheckSame(LeakReport(), "", "leaked references");
        dialsim_reset();
    }
};

// Initializes the library; the destructor calls uninit.
class InitializedLibrary {
public:
    InitializedLibrary() { CheckSame(initialize(), 0, "initialize"); }
    InitializedLibrary(const InitializedLibrary&) = delete;
    InitializedLibrary& operator=(const InitializedLibrary&) = delete;
    ~InitializedLibrary() { uninit(); }
};

// Empty stores in memory, which are faster than files.
class MemoryStores {
public:
    MemoryStores() {
        dialsim_set_stores(DIALSIM_MEMORY);
        Clear();
    }
    MemoryStores(const MemoryStores&) = delete;
    MemoryStores& operator=(const MemoryStores&) = delete;
    ~MemoryStores() { Clear(); }

private:
    static void Clear() { Check(dialsim_clear_stores(), "the stores are cleared"); }
};
