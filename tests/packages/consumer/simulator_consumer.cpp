// Turns the simulated dial: status 0 when the host received the turn, 3 when not, 4 when the simulator could
// not hook the library, else initialize's result.
#include <brindle.h>
#include <dialsim.h>

namespace {

class Host final : public IDialHost {
public:
    uint64_t GetWindowHandle() override { return 42; }
    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        degrees_ += turn->deltaDegrees;
    }
    void OnButtonClicked(void* /*sender*/, const DialContactRect* /*rect*/) override { ++clicks_; }

    bool ReceivedEvents() const { return degrees_ == 7.5 && clicks_ == 1; }

private:
    double degrees_ = 0.0;
    int clicks_ = 0;
};

}  // namespace

int main() {
    if (!dialsim_start()) {
        return 4;
    }
    if (const int32_t answer = initialize(); answer != 0) {
        return answer;
    }
    Host host;
    const bool turned = init_dial_listener(&host) && dialsim_turn(42, 5.0) == 0 &&
                        dialsim_turn(42, 2.5) == 0 && dialsim_click(42) == 0;
    uninit();
    return turned && host.ReceivedEvents() ? 0 : 3;
}
