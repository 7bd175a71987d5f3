#pragma once

#include <cstdint>

#include "platform/interfaces/collections.h"

namespace brindle::abi {

struct ISimpleHapticsController;
struct ISimpleHapticsControllerFeedback;

struct SimpleHapticsController {
    using Default = ISimpleHapticsController;
    static constexpr char Name[] = "Windows.Devices.Haptics.SimpleHapticsController";
};

struct SimpleHapticsControllerFeedback {
    using Default = ISimpleHapticsControllerFeedback;
    static constexpr char Name[] = "Windows.Devices.Haptics.SimpleHapticsControllerFeedback";
};

struct ISimpleHapticsController : IInspectable {
    static constexpr GUID Iid = Id("3d577ef9-4cee-11e6-b535-001bdc06ab3b");
    virtual HRESULT get_Id(HSTRING* result) noexcept = 0;
    virtual HRESULT get_SupportedFeedback(IVectorView<SimpleHapticsControllerFeedback>** result) noexcept = 0;
    virtual HRESULT get_IsIntensitySupported(boolean* result) noexcept = 0;
    virtual HRESULT get_IsPlayCountSupported(boolean* result) noexcept = 0;
    virtual HRESULT get_IsPlayDurationSupported(boolean* result) noexcept = 0;
    virtual HRESULT get_IsReplayPauseIntervalSupported(boolean* result) noexcept = 0;
    virtual HRESULT StopFeedback() noexcept = 0;
    virtual HRESULT SendHapticFeedback(ISimpleHapticsControllerFeedback* feedback) noexcept = 0;
    virtual HRESULT SendHapticFeedbackWithIntensity(ISimpleHapticsControllerFeedback* feedback,
                                                    double intensity) noexcept = 0;
    virtual HRESULT SendHapticFeedbackForDuration(ISimpleHapticsControllerFeedback* feedback,
                                                  double intensity, TimeSpan playDuration) noexcept = 0;
    virtual HRESULT SendHapticFeedbackForPlayCount(ISimpleHapticsControllerFeedback* feedback,
                                                   double intensity, std::int32_t playCount,
                                                   TimeSpan replayPauseInterval) noexcept = 0;

protected:
    ~ISimpleHapticsController() = default;
};

struct ISimpleHapticsControllerFeedback : IInspectable {
    static constexpr GUID Iid = Id("3d577ef8-4cee-11e6-b535-001bdc06ab3b");
    virtual HRESULT get_Waveform(std::uint16_t* result) noexcept = 0;
    virtual HRESULT get_Duration(TimeSpan* result) noexcept = 0;

protected:
    ~ISimpleHapticsControllerFeedback() = default;
};

}  // namespace brindle::abi
