#include "platform/errors.h"

#include <cstdio>
#include <new>
#include <stdexcept>

#include "platform/functions.h"
#include "platform/text.h"

namespace brindle {

namespace {

HRESULT Originate(HRESULT code, const std::exception& error) noexcept {
    try {
        RoOriginateLanguageException(code, ToPlatformString(error.what()).Get(), nullptr);
    } catch (...) {
        // The message is extra: without memory for it the code goes alone.
    }
    return code;
}

}  // namespace

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

HRESULT ErrorToCode() noexcept {
    try {
        throw;
    } catch (const hresult_error& error) {
        return error.code();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::out_of_range& error) {
        return Originate(kOutOfBounds, error);
    } catch (const std::invalid_argument& error) {
        return Originate(E_INVALIDARG, error);
    } catch (const std::exception& error) {
        return Originate(E_FAIL, error);
    } catch (...) {
        return E_FAIL;
    }
}

void RaiseStructuredException(HRESULT code) {
    RaiseException(static_cast<DWORD>(code), EXCEPTION_NONCONTINUABLE, 0, nullptr);
    __builtin_unreachable();
}

}  // namespace brindle
