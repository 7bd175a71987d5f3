// Calls that the library does not allow concurrently: the thread sanitizer must report each race. The library
// takes no locks; each run shows that its rule is necessary.
#include <brindle.h>

#include <cstdio>
#include <functional>
#include <latch>
#include <map>
#include <string>
#include <thread>

#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/menu_items.h"
#include "support/pictures.h"
#include "support/silent_host.h"

namespace {

constexpr int kRounds = 20'000;

SilentHost host(kWindow);
SilentHost other_host(kOtherWindow);
const TemporaryFile picture("brindle-races.png", SmallPng());

void RunConcurrently(const std::function<void()>& one, const std::function<void()>& other) {
    std::latch start(2);
    const std::jthread thread([&] {
        start.arrive_and_wait();
        one();
    });
    start.arrive_and_wait();
    other();
}

std::uint32_t NextPicture() {
    static std::uint32_t count = 0;
    return count++;
}

void TwoImageLoadsOfOneMenu() {
    SetMenu(kWindow, {FilePNG(1, picture.Path()), FilePNG(2, picture.Path())});
    const std::uint32_t first = NextPicture();
    const std::uint32_t second = NextPicture();
    RunConcurrently([=] { dialsim_complete(first); }, [=] { dialsim_complete(second); });
}

// The chosen item's entry is behind those of all earlier rounds.
void InvocationAndImageLoad() {
    const std::uint32_t loading = NextPicture();
    SetMenu(kWindow, {KnownIcon(loading), FilePNG(loading, picture.Path())});
    RunConcurrently([=] { dialsim_complete(loading); }, [] { dialsim_choose(kWindow, 0); });
}

void InvocationAndNewMenu() {
    SetMenu(kWindow, {KnownIcon(1)});
    RunConcurrently([] { dialsim_choose(kWindow, 0); }, [] { SetMenu(kWindow, {KnownIcon(1)}); });
}

// The same race occurs while add_custom_menu processes the items after a picture file.
void APictureAndANewMenu() {
    const std::uint32_t loading = NextPicture();
    SetMenu(kWindow, {FilePNG(1, picture.Path())});
    RunConcurrently([=] { dialsim_complete(loading); }, [] { SetMenu(kWindow, {KnownIcon(1)}); });
}

void RotationAndNewMenu() {
    RunConcurrently([] { dialsim_turn(kWindow, 1.0); }, [] { SetMenu(kWindow, {}); });
}

void RotationsOfTwoWindows() {
    RunConcurrently([] { dialsim_turn(kWindow, 1.0); }, [] { dialsim_turn(kOtherWindow, 1.0); });
}

void RotationAndUninit() {
    RunConcurrently([] { dialsim_turn(kWindow, 1.0); }, uninit);
    initialize();
    init_dial_listener(&host);
}

const std::map<std::string, void (*)()> kRaces = {
    {"two_image_loads_of_one_menu", TwoImageLoadsOfOneMenu},
    {"invocation_and_image_load", InvocationAndImageLoad},
    {"invocation_and_new_menu", InvocationAndNewMenu},
    {"a_picture_and_a_new_menu", APictureAndANewMenu},
    {"rotation_and_new_menu", RotationAndNewMenu},
    {"rotations_of_two_windows", RotationsOfTwoWindows},
    {"rotation_and_uninit", RotationAndUninit},
};

}  // namespace

int main(int argc, char** argv) {
    const auto race = argc == 2 ? kRaces.find(argv[1]) : kRaces.end();
    if (race == kRaces.end()) {
        std::fprintf(stderr, "usage: races NAME\n");
        return 2;
    }
    initialize();
    init_dial_listener(&host);
    init_dial_listener(&other_host);
    dialsim_async(DIALSIM_HELD);
    for (int round = 0; round < kRounds; ++round) {
        race->second();
        dialsim_clear_journal();
    }
    uninit();
    return 0;
}
