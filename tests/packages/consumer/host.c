/* A minimal host in C: status 0 when its window has a dial, 3 when not, else initialize's result. */
#include <brindle.h>

static uint64_t GetWindowHandle(IDialHost* self) {
    (void)self;
    return 42;
}

static void OnRotation(IDialHost* self, void* sender, DialRotationInfo* turn) {
    (void)self;
    (void)sender;
    (void)turn;
}

static void OnButtonClicked(IDialHost* self, void* sender, const DialContactRect* rect) {
    (void)self;
    (void)sender;
    (void)rect;
}

static const IDialHostFunctions functions = {OnRotation, GetWindowHandle, OnButtonClicked};

int main(void) {
    IDialHost host = {&functions};
    const int32_t answer = initialize();
    if (answer != 0) {
        return answer;
    }
    const bool ready = init_dial_listener(&host) && is_dial_present(42);
    uninit();
    return ready ? 0 : 3;
}
