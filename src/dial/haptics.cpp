#include "dial/haptics.h"

#include "frame/errors.h"
#include "platform/com_ptr.h"
#include "platform/interfaces/haptics.h"

namespace brindle {

namespace {

constexpr double kFullIntensity = 1.0;
constexpr std::int32_t kPlayCount = 3;
constexpr abi::TimeSpan kReplayPause{2'000'000};  // 200 ms in units of 100 ns

bool AsksForHaptics(const std::uint32_t* request) {
    return request != nullptr && (*request == 1 || *request == 2);
}

}  // namespace

void AnswerWithHaptics(const DialRotationInfo& info, abi::IUnknown* rotation_args) {
    if (!AsksForHaptics(info.hapticRequest)) {
        return;
    }
    ComPtr<abi::IRadialControllerRotationChangedEventArgs2> args;
    RaiseIfFailed(Query(rotation_args, args));
    ComPtr<abi::ISimpleHapticsController> controller;
    RaiseIfFailed(args->get_SimpleHapticsController(controller.Put()));
    if (!controller) {
        return;
    }
    ComPtr<abi::IVectorView<abi::SimpleHapticsControllerFeedback>> waveforms;
    RaiseIfFailed(controller->get_SupportedFeedback(waveforms.Put()));
    std::uint32_t count = 0;
    if (waveforms) {
        RaiseIfFailed(waveforms->get_Size(&count));
    }
    if (count == 0) {
        return;
    }
    ComPtr<abi::ISimpleHapticsControllerFeedback> first;
    RaiseIfFailed(waveforms->GetAt(0, first.Put()));
    RaiseIfFailed(
        controller->SendHapticFeedbackForPlayCount(first.Get(), kFullIntensity, kPlayCount, kReplayPause));
}

}  // namespace brindle
