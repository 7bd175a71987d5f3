// set_default_menu: selects the system's own entries that remain.
#include <algorithm>
#include <vector>

#include "menu/dial_menu.h"
#include "menu/kind_sequence.h"
#include "platform/activation.h"
#include "platform/errors.h"

namespace brindle {

namespace {

// Null when the window has none. The code of GetForWindow is deliberately ignored: a configuration that comes
// with a failure code works (DefaultMenu.AConfigurationThatComesWithAFailureIsUsed).
ComPtr<abi::IRadialControllerConfiguration> GetConfigurationForWindow(std::uint64_t window) {
    ComPtr<abi::IActivationFactory> factory;
    ThrowIfFailed(GetFactory<abi::RadialControllerConfiguration>(factory));
    ComPtr<abi::IRadialControllerConfigurationInterop> interop;
    ThrowIfFailed(Query(factory.Get(), interop));
    ComPtr<abi::IRadialControllerConfiguration> configuration;
    interop->GetForWindow(reinterpret_cast<HWND>(window), abi::IRadialControllerConfiguration::Iid,
                          reinterpret_cast<void**>(configuration.Put()));
    return configuration;
}

// Closes the sequence when the call ends, also by an exception.
class OpenSequence {
public:
    OpenSequence(const std::int32_t* kinds, std::uint32_t count) {
        std::vector<SystemItemKind> copy(count);
        std::transform(kinds, kinds + count, copy.begin(),
                       [](std::int32_t kind) { return static_cast<SystemItemKind>(kind); });
        sequence_ = ComPtr<KindSequence>::Attach(new KindSequence(std::move(copy)));
    }
    OpenSequence(const OpenSequence&) = delete;
    OpenSequence& operator=(const OpenSequence&) = delete;
    ~OpenSequence() { sequence_->Close(); }

    KindSequence* Get() const { return sequence_.Get(); }

private:
    ComPtr<KindSequence> sequence_;
};

}  // namespace

// Deliberately the window that the host object reports now, not the argument of the export, as brindle.h
// tells hosts (DefaultMenu.TheWindowIsTheOneThatTheHostNamesNow).
HRESULT DialMenu::SetDefaultMenu(const std::int32_t* kinds, std::uint32_t count) {
    if (host_ == nullptr) {
        return E_FAIL;
    }
    try {
        const auto configuration = GetConfigurationForWindow(host_->GetWindowHandle());
        if (!configuration) {
            return E_NOINTERFACE;
        }
        if (kinds == nullptr) {
            return E_INVALIDARG;
        }
        const OpenSequence sequence(kinds, count);
        ThrowIfFailed(configuration->SetDefaultMenuItems(sequence.Get()));
        return S_OK;
    } catch (const hresult_error& error) {
        return error.code();
    }
}

}  // namespace brindle
