// How long it takes to load a DLL and to let it go again, for two of them in turn. Prints a line for each:
// its name, and of all rounds the lower quartile, the median and the upper quartile in nanoseconds.
//
// Usage: load_time [--with NAME]... ROUNDS FULL-PATH FULL-PATH; what is named stays loaded all the time.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

struct Measured {
    const char* path;
    std::vector<double> nanoseconds;
};

double Now() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER count;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    return static_cast<double>(count.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

bool LoadAndFree(Measured& measured) {
    const double before = Now();
    const HMODULE module = LoadLibraryExA(measured.path, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module == nullptr) {
        std::fprintf(stderr, "load_time: %s is not to be loaded\n", measured.path);
        return false;
    }
    FreeLibrary(module);
    measured.nanoseconds.push_back(Now() - before);
    return true;
}

void Print(Measured& measured) {
    auto& all = measured.nanoseconds;
    std::sort(all.begin(), all.end());
    std::printf("%s %.0f %.0f %.0f\n", measured.path, all[all.size() / 4], all[all.size() / 2],
                all[all.size() * 3 / 4]);
}

}  // namespace

int main(int argc, char** argv) {
    int next = 1;
    for (; next + 1 < argc && std::strcmp(argv[next], "--with") == 0; next += 2) {
        LoadLibraryA(argv[next + 1]);
    }
    const int rounds = next + 3 == argc ? std::atoi(argv[next]) : 0;
    if (rounds <= 0) {
        std::fprintf(stderr, "usage: load_time [--with NAME]... ROUNDS FULL-PATH FULL-PATH\n");
        return 2;
    }
    std::array<Measured, 2> both = {Measured{argv[next + 1], {}}, Measured{argv[next + 2], {}}};
    for (int round = 0; round < rounds; ++round) {
        // Neither is always the first.
        const std::size_t first = static_cast<std::size_t>(round) % 2;
        if (!LoadAndFree(both[first]) || !LoadAndFree(both[1 - first])) {
            return 1;
        }
    }
    for (Measured& measured : both) {
        Print(measured);
    }
    return 0;
}
