// A minimal host: status 0 when its window has a dial, 3 when not, else initialize's result.
#include <brindle.h>

namespace {

class Host final : public IDialHost {
public:
    uint64_t GetWindowHandle() override { return 42; }
    void OnRotation(void* /*sender*/, const DialRotationInfo* /*turn*/) override {}
    void OnButtonClicked(void* /*sender*/, const DialContactRect* /*rect*/) override {}
};

}  // namespace

int main() {
    if (const int32_t answer = initialize(); answer != 0) {
        return answer;
    }
    Host host;
    const bool ready = init_dial_listener(&host) && is_dial_present(host.GetWindowHandle());
    uninit();
    return ready ? 0 : 3;
}
