// What every fuzzing target is made of: bytes that are read as what a host or a person may send in, checks
// that end the process, and a fresh simulator for each input.
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

inline void Check(bool holds, const std::string& what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what.c_str());
        std::abort();
    }
}

inline void CheckSame(const std::string& is, const std::string& should_be, const char* what) {
    Check(is == should_be, std::string(what) + "\n--- is\n" + is + "\n--- should be\n" + should_be);
}

template <std::integral Is, std::integral ShouldBe>
void CheckSame(Is is, ShouldBe should_be, const char* what) {
    CheckSame(std::to_string(is), std::to_string(should_be), what);
}

// What comes first is taken first; a reader that has run dry goes on with zeros.
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
    // Small numbers as often as large ones: what is to meet again has to be small.
    std::uint32_t SmallOrAnyNumber() {
        const std::uint8_t first = Byte();
        return first < 0xF0 ? first % 8 : Number();
    }

    // A text without NUL, of up to 64,512 units: a byte says how many units follow, whether they have one
    // byte or two, and whether all of that is doubled, several times. A target whose limits are lower asks
    // for fewer doublings: time goes with the length of texts.
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
    // The same in bytes, without repetition.
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

// One input's run: it starts on a fresh simulator, and all that was handed out has come back at its end. It
// leaves no allocation behind: the fuzzing engine runs an input twice that does, to look for leaks.
class Run {
public:
    Run() { dialsim_reset(); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() {
        CheckSame(LeakReport(), "", "handed out and not come back");
        dialsim_reset();
    }
};

// The library started, and stopped at the end.
class InitializedLibrary {
public:
    InitializedLibrary() { CheckSame(initialize(), 0, "initialize"); }
    InitializedLibrary(const InitializedLibrary&) = delete;
    InitializedLibrary& operator=(const InitializedLibrary&) = delete;
    ~InitializedLibrary() { uninit(); }
};

// Empty stores that no disk slows down.
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
