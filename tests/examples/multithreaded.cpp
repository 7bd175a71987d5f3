// Preloaded into a native program, makes its main thread multithreaded for the platform, as another module
// may.
extern "C" int RoInitialize(int type);

namespace {

constexpr int kMultithreaded = 1;

struct Initialization {
    Initialization() { RoInitialize(kMultithreaded); }
};
const Initialization initialization;

}  // namespace
