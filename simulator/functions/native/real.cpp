#include "simulator/functions/real.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "simulator/functions/class_objects.h"
#include "simulator/system/clock.h"
#include "simulator/system/text.h"

namespace dialsim {

namespace {

constexpr HRESULT kNotInitialized = static_cast<HRESULT>(0x800401F0);  // CO_E_NOTINITIALIZED
constexpr HRESULT kChangedMode = static_cast<HRESULT>(0x80010106);     // RPC_E_CHANGED_MODE

struct Apartment {
    int initializations = 0;
    RO_INIT_TYPE type = RO_INIT_SINGLETHREADED;
};
thread_local Apartment apartment;

}  // namespace

HRESULT CheckApartment() { return apartment.initializations == 0 ? kNotInitialized : S_OK; }

void WaitInApartment() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

namespace real {

HRESULT RoInitialize(RO_INIT_TYPE type) {
    if (apartment.initializations > 0 && apartment.type != type) {
        return kChangedMode;
    }
    apartment.type = type;
    return apartment.initializations++ == 0 ? S_OK : S_FALSE;
}

void RoUninitialize() {
    if (apartment.initializations > 0) {
        --apartment.initializations;
    }
}

HRESULT RoGetActivationFactory(HSTRING /*class_name*/, const IID& /*iid*/, void** factory) {
    *factory = nullptr;
    return kClassNotRegistered;
}

BOOL RoOriginateLanguageException(HRESULT, HSTRING, ::IUnknown*) { return 1; }

ULONGLONG GetTickCount64() { return ClockNow(); }

int MultiByteToWideChar(UINT code_page, DWORD flags, const char* bytes, int byte_count, WCHAR* wide,
                        int wide_count) {
    // UTF-8 requires flags of 0.
    if (code_page != CP_UTF8 || flags != 0) {
        return 0;
    }
    const WideString text = Widen({bytes, static_cast<std::size_t>(byte_count)});
    if (wide_count == 0) {
        return static_cast<int>(text.size());
    }
    if (text.size() > static_cast<std::size_t>(wide_count)) {
        return 0;
    }
    text.copy(wide, text.size());
    return static_cast<int>(text.size());
}

}  // namespace real

}  // namespace dialsim

// A structured exception cannot be caught natively: prints it and ends the process.
void RaiseException(DWORD code, DWORD flags, DWORD argument_count, const std::uintptr_t*) {
    std::fprintf(stderr, "structured exception %x, flags %x, %u arguments\n", code, flags, argument_count);
    std::_Exit(EXIT_FAILURE);
}
