#include "dial/haptics.h"

#include "platform/com_ptr.h"
#include "platform/errors.h"
#include "platform/interfaces/haptics.h"

namespace brindle {

namespace {

constexpr double kFullIntensity = 1.0;
constexpr std::int32_t kPlayCount = 3;
constexpr abi::TimeSpan kReplayPause{2'000'000};  // 200 ms in units of 100 ns

}  // namespace

void PlayFirstWaveform(abi::IUnknown* rotation_args) {
    ComPtr<abi::IRadialControllerRotationChangedEventArgs2> args;
    ThrowIfFailed(Query(rotation_args, args));
    ComPtr<abi::ISimpleHapticsController> controller;
    ThrowIfFailed(args->get_SimpleHapticsController(controller.Put()));
    if (!controller) {
        return;
    }
    ComPtr<abi::IVectorView<abi::SimpleHapticsControllerFeedback>> waveforms;
    ThrowIfFailed(controller->get_SupportedFeedback(waveforms.Put()));
    std::uint32_t count = 0;
    if (waveforms) {
        ThrowIfFailed(waveforms->get_Size(&count));
    }
    if (count == 0) {
        return;
    }
    ComPtr<abi::ISimpleHapticsControllerFeedback> first;
    ThrowIfFailed(waveforms->GetAt(0, first.Put()));
    ThrowIfFailed(
        controller->SendHapticFeedbackForPlayCount(first.Get(), kFullIntensity, kPlayCount, kReplayPause));
}

}  // namespace brindle
