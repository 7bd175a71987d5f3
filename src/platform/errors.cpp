#include "platform/errors.h"

#include <cstdio>
#include <new>

#include "platform/functions.h"

namespace brindle {

hresult_error::hresult_error(HRESULT code) noexcept : code_(code), text_{} {
    std::snprintf(text_.data(), text_.size(), "platform error %x", static_cast<unsigned>(code));
}

void Throw(HRESULT code) {
    switch (code) {
        case E_OUTOFMEMORY:
            throw std::bad_alloc();
        case kAccessDenied:
            throw hresult_access_denied();
        case kWrongThread:
            throw hresult_wrong_thread();
        case E_NOTIMPL:
            throw hresult_not_implemented();
        case E_INVALIDARG:
            throw hresult_invalid_argument();
        case kOutOfBounds:
            throw hresult_out_of_bounds();
        case E_NOINTERFACE:
            throw hresult_no_interface();
        case kDisconnected:
            throw hresult_disconnected();
        case kClassNotAvailable:
            throw hresult_class_not_available();
        case kChangedState:
            throw hresult_changed_state();
        case kIllegalMethodCall:
            throw hresult_illegal_method_call();
        case kIllegalStateChange:
            throw hresult_illegal_state_change();
        case kIllegalDelegateAssignment:
            throw hresult_illegal_delegate_assignment();
        case kCanceled:
            throw hresult_canceled();
        default:
            throw hresult_error(code);
    }
}

void RaiseStructuredException(HRESULT code) {
    RaiseException(static_cast<DWORD>(code), EXCEPTION_NONCONTINUABLE, 0, nullptr);
    __builtin_unreachable();
}

}  // namespace brindle
