// Counts the heap allocations of each workload, and the memory that a window and a menu item hold. Prints a
// line of JSON for each. The program is linked with --wrap for the allocation functions; the stub platform is
// a library of its own and is not counted.
#include <cstdio>
#include <cstdlib>
#include <new>

#include "bench/host.h"
#include "bench/workloads.h"
#include "dial/dial_listener.h"

namespace {

std::size_t allocations = 0;
std::size_t held_bytes = 0;

void* Count(void* block, std::size_t size) {
    ++allocations;
    held_bytes += size;
    return block;
}

}  // namespace

extern "C" void* __real__Znwm(std::size_t size);
extern "C" void* __wrap__Znwm(std::size_t size) { return Count(__real__Znwm(size), size); }

extern "C" void* __real__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag);
extern "C" void* __wrap__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag) {
    return Count(__real__ZnwmRKSt9nothrow_t(size, tag), size);
}

extern "C" void __real__ZdlPvm(void* block, std::size_t size);
extern "C" void __wrap__ZdlPvm(void* block, std::size_t size) {
    held_bytes -= size;
    __real__ZdlPvm(block, size);
}

// Of arrays of characters, which are temporary: not held.
extern "C" void* __real__Znam(std::size_t size);
extern "C" void* __wrap__Znam(std::size_t size) {
    ++allocations;
    return __real__Znam(size);
}

extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size) {
    ++allocations;
    return __real_calloc(count, size);
}

namespace {

constexpr std::size_t kWindows = 1'000;
constexpr std::uint32_t kItems = 10'000;

std::size_t AllocationsOf(bench::Workload& work) {
    work.Run();
    const std::size_t before = allocations;
    work.Run();
    return allocations - before;
}

void PrintAllocations(const bench::Comparison& pair) {
    std::printf("{\"allocations\": \"%s\", \"library\": %zu, \"baseline\": %zu}\n", pair.name.c_str(),
                AllocationsOf(*pair.library()), AllocationsOf(*pair.baseline()));
}

void PrintMemory(const char* what, std::size_t bytes, std::size_t number, std::size_t fields) {
    std::printf("{\"memory\": \"%s\", \"bytes\": %.1f, \"fields\": %zu}\n", what,
                static_cast<double>(bytes) / static_cast<double>(number), fields);
}

// The size of a delegate without the state of its action: the function table and the reference count.
constexpr std::size_t kDelegate = sizeof(void*) + sizeof(std::uint32_t);

void PrintWindowMemory() {
    std::vector<bench::Host> hosts;
    for (std::size_t i = 0; i < kWindows; ++i) {
        hosts.emplace_back(bench::kWindow + 4 * i);
    }
    initialize();
    const std::size_t before = held_bytes;
    for (bench::Host& host : hosts) {
        init_dial_listener(&host);
    }
    using Listener = brindle::DialListener;
    constexpr std::size_t kEvents = 7 * (kDelegate + sizeof(Listener*));
    constexpr std::size_t kRegistryEntry = sizeof(std::uint64_t) + sizeof(Listener*);
    PrintMemory("window", held_bytes - before, kWindows,
                sizeof(Listener) + kEvents + kRegistryEntry + sizeof(std::int32_t));
    uninit();
}

void PrintItemMemory() {
    bench::Host host;
    initialize();
    init_dial_listener(&host);
    MenuItemDescription item{};
    item.kind = MenuItemKind::KnownIcon;
    item.display_text = u"Brush size";
    const std::vector<MenuItemDescription> items(kItems, item);
    const std::size_t before = held_bytes;
    add_custom_menu(bench::kWindow, items.data(), kItems);
    using Entry = brindle::MenuEntry;
    PrintMemory("menu item", held_bytes - before, kItems,
                sizeof(Entry) + kDelegate + sizeof(brindle::DialListener*));
    uninit();
}

}  // namespace

int main() {
    for (const bench::Comparison& pair : bench::Comparisons()) {
        PrintAllocations(pair);
    }
    PrintWindowMemory();
    PrintItemMemory();
    return 0;
}
