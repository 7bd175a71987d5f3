#include "simulator/classes/haptics.h"

#include <cstdio>

#include "simulator/classes/vectors.h"

namespace dialsim {

namespace {

constinit FeedbackListener feedback_listener = [] {};

class Feedback final : public Object<abi::ISimpleHapticsControllerFeedback> {
    using Interface = abi::ISimpleHapticsControllerFeedback;

public:
    explicit Feedback(std::uint16_t waveform)
        : Object(abi::SimpleHapticsControllerFeedback::Name), waveform_(waveform) {}

    HRESULT get_Waveform(std::uint16_t* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Waveform"), "", result, [&] {
            *result = waveform_;
            return S_OK;
        });
    }
    // Zero: the device chooses the duration.
    HRESULT get_Duration(abi::TimeSpan* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Duration"), "", result, [&] {
            *result = {};
            return S_OK;
        });
    }

    std::uint16_t waveform() const { return waveform_; }

private:
    const std::uint16_t waveform_;
};

class HapticsController final : public Object<abi::ISimpleHapticsController> {
    using Interface = abi::ISimpleHapticsController;
    using List = VectorView<abi::SimpleHapticsControllerFeedback>;

public:
    explicit HapticsController(std::vector<std::uint16_t> waveforms)
        : Object(abi::SimpleHapticsController::Name), waveforms_(std::move(waveforms)) {}

    HRESULT get_Id(HSTRING* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Id"), "", result,
                           [&] { return NewString(Widen("dialsim"), result); });
    }
    HRESULT get_SupportedFeedback(
        abi::IVectorView<abi::SimpleHapticsControllerFeedback>** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_SupportedFeedback"), "", result, [&] {
            std::vector<Ref<abi::ISimpleHapticsControllerFeedback>> feedback;
            for (const std::uint16_t waveform : waveforms_) {
                feedback.push_back(
                    Ref<abi::ISimpleHapticsControllerFeedback>::Attach(new Feedback(waveform)));
            }
            return Make<List>(std::move(feedback)).CopyTo(result);
        });
    }
    HRESULT get_IsIntensitySupported(abi::boolean* result) noexcept override {
        return Supported("get_IsIntensitySupported", result);
    }
    HRESULT get_IsPlayCountSupported(abi::boolean* result) noexcept override {
        return Supported("get_IsPlayCountSupported", result);
    }
    HRESULT get_IsPlayDurationSupported(abi::boolean* result) noexcept override {
        return Supported("get_IsPlayDurationSupported", result);
    }
    HRESULT get_IsReplayPauseIntervalSupported(abi::boolean* result) noexcept override {
        return Supported("get_IsReplayPauseIntervalSupported", result);
    }
    HRESULT StopFeedback() noexcept override {
        return Perform(MethodName<Interface>("StopFeedback"), "", [] { return S_OK; });
    }
    HRESULT SendHapticFeedback(abi::ISimpleHapticsControllerFeedback* feedback) noexcept override {
        return Play("SendHapticFeedback", feedback, "");
    }
    HRESULT SendHapticFeedbackWithIntensity(abi::ISimpleHapticsControllerFeedback* feedback,
                                            double intensity) noexcept override {
        return Play("SendHapticFeedbackWithIntensity", feedback, Text(intensity));
    }
    HRESULT SendHapticFeedbackForDuration(abi::ISimpleHapticsControllerFeedback* feedback, double intensity,
                                          abi::TimeSpan duration) noexcept override {
        return Play("SendHapticFeedbackForDuration", feedback,
                    Text(intensity) + ", " + std::to_string(duration.Duration));
    }
    HRESULT SendHapticFeedbackForPlayCount(abi::ISimpleHapticsControllerFeedback* feedback, double intensity,
                                           std::int32_t count, abi::TimeSpan pause) noexcept override {
        return Play("SendHapticFeedbackForPlayCount", feedback,
                    Text(intensity) + ", " + std::to_string(count) + ", " + std::to_string(pause.Duration));
    }

private:
    static std::string Text(double intensity) {
        char text[32];
        std::snprintf(text, sizeof text, ", %g", intensity);
        return text;
    }
    static HRESULT Supported(std::string_view method, abi::boolean* result) {
        return PerformInto(MethodName<Interface>(method), "", result, [&] {
            *result = 1;
            return S_OK;
        });
    }
    // The journal arguments are the waveform and the playback parameters.
    static HRESULT Play(std::string_view method, abi::ISimpleHapticsControllerFeedback* feedback,
                        const std::string& parameters) {
        const std::string waveform =
            feedback == nullptr ? "null" : std::to_string(static_cast<Feedback*>(feedback)->waveform());
        const HRESULT code = Perform(MethodName<Interface>(method), waveform + parameters,
                                     [&] { return feedback == nullptr ? E_INVALIDARG : S_OK; });
        if (code == S_OK) {
            feedback_listener();
        }
        return code;
    }

    const std::vector<std::uint16_t> waveforms_;
};

}  // namespace

void SetFeedbackListener(FeedbackListener listener) { feedback_listener = listener; }

Ref<abi::ISimpleHapticsController> MakeHapticsController(const DialState& state) {
    return Ref<abi::ISimpleHapticsController>::Attach(new HapticsController(state.waveforms));
}

}  // namespace dialsim
