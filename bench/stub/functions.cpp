// The platform's functions except those for texts, paths, resources and streams.
#include "platform/functions.h"

#include <cstdlib>
#include <ctime>

#include "bench/stub/factories.h"
#include "bench/stub/strings.h"
#include "platform/interfaces/credentials.h"
#include "platform/interfaces/devices.h"
#include "platform/interfaces/metadata.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/ui_input.h"

namespace stub {

namespace {

class Types final : public StaticObject<abi::IApiInformationStatics> {
public:
    HRESULT IsTypePresent(HSTRING, abi::boolean* result) noexcept override {
        STUB_RECORD_CALL();
        *result = 1;
        return S_OK;
    }
    HRESULT IsMethodPresent(HSTRING, HSTRING, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT IsMethodPresentWithArity(HSTRING, HSTRING, std::uint32_t, abi::boolean*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT IsEventPresent(HSTRING, HSTRING, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT IsPropertyPresent(HSTRING, HSTRING, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT IsReadOnlyPropertyPresent(HSTRING, HSTRING, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT IsWriteablePropertyPresent(HSTRING, HSTRING, abi::boolean*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT IsEnumNamedValuePresent(HSTRING, HSTRING, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT IsApiContractPresentByMajor(HSTRING, std::uint16_t, abi::boolean*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT IsApiContractPresentByMajorAndMinor(HSTRING, std::uint16_t, std::uint16_t,
                                                abi::boolean*) noexcept override {
        return E_NOTIMPL;
    }
};

struct Entry {
    GUID iid;
    abi::IUnknown& (*factory)();
};

constexpr Entry kFactories[] = {
    {abi::IRadialControllerMenuItemStatics::Iid, MenuItemStatics},
    {abi::IPropertyValueStatics::Iid, PropertyValueStatics},
    {abi::IApplicationDataStatics::Iid, ApplicationData},
    {abi::IActivationFactory::Iid, PasswordVaultFactory},
    {abi::ICredentialFactory::Iid, CredentialFactory},
    {abi::IDeviceInformationStatics::Iid, DeviceStatics},
    {abi::IRadialControllerMenuItemStatics2::Iid, MenuItemStatics},
    {abi::IUriRuntimeClassFactory::Iid, UriFactory},
    {abi::IStorageFileStatics::Iid, StorageFileStatics},
    {abi::IRandomAccessStreamReferenceStatics::Iid, StreamReferences},
    {abi::IRadialControllerInterop::Iid, ControllerInterop},
    {abi::IApiInformationStatics::Iid, ApiInformation},
};

std::uint64_t ticks = 1'000;

}  // namespace

abi::IUnknown& ApiInformation() {
    static Types types;
    return types;
}

}  // namespace stub

HRESULT RoInitialize(RO_INIT_TYPE) {
    STUB_RECORD_CALL();
    return S_OK;
}
void RoUninitialize() { STUB_RECORD_CALL(); }

// Chosen by the interface: each factory has a different one.
HRESULT RoGetActivationFactory(HSTRING, const IID& iid, void** factory) {
    STUB_RECORD_CALL();
    for (const auto& entry : stub::kFactories) {
        if (stub::SameId(entry.iid, iid)) {
            return entry.factory().QueryInterface(iid, factory);
        }
    }
    *factory = nullptr;
    return E_NOINTERFACE;
}

BOOL RoOriginateLanguageException(HRESULT, HSTRING, IUnknown*) { return 0; }

// Advances in steps, so that every turn takes the same path through the library.
ULONGLONG GetTickCount64() {
    STUB_RECORD_CALL();
    return stub::ticks += 50;
}

// Not recorded: the two sides wait in different ways.
void Sleep(DWORD milliseconds) {
    const std::timespec time{0, static_cast<long>(milliseconds) * 1'000'000};
    nanosleep(&time, nullptr);
}

void RaiseException(DWORD, DWORD, DWORD, const std::uintptr_t*) { std::abort(); }

HRESULT CoCreateFreeThreadedMarshaler(IUnknown*, IUnknown**) { return E_NOTIMPL; }
HRESULT WindowsPreallocateStringBuffer(UINT, WCHAR**, HSTRING_BUFFER*) { return E_NOTIMPL; }
HRESULT WindowsPromoteStringBuffer(HSTRING_BUFFER, HSTRING*) { return E_NOTIMPL; }
HRESULT WindowsDeleteStringBuffer(HSTRING_BUFFER) { return E_NOTIMPL; }
int MultiByteToWideChar(UINT, DWORD, const char*, int, WCHAR*, int) { return 0; }
