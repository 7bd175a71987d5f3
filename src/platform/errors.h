// Platform failures as exceptions.
#pragma once

#include <array>
#include <exception>

#include "platform/types.h"

namespace brindle {

inline constexpr HRESULT kAccessDenied = static_cast<HRESULT>(0x80070005);
inline constexpr HRESULT kWrongThread = static_cast<HRESULT>(0x8001010E);
inline constexpr HRESULT kOutOfBounds = static_cast<HRESULT>(0x8000000B);
inline constexpr HRESULT kDisconnected = static_cast<HRESULT>(0x80010108);
inline constexpr HRESULT kClassNotAvailable = static_cast<HRESULT>(0x80040111);
inline constexpr HRESULT kChangedState = static_cast<HRESULT>(0x8000000C);
inline constexpr HRESULT kIllegalMethodCall = static_cast<HRESULT>(0x8000000E);
inline constexpr HRESULT kIllegalStateChange = static_cast<HRESULT>(0x8000000D);
inline constexpr HRESULT kIllegalDelegateAssignment = static_cast<HRESULT>(0x80000018);
inline constexpr HRESULT kCanceled = static_cast<HRESULT>(0x800704C7);
inline constexpr HRESULT kArithmeticOverflow = static_cast<HRESULT>(0x80070216);

// A failure of the platform, with the code it gave.
class hresult_error : public std::exception {
public:
    explicit hresult_error(HRESULT code) noexcept;

    HRESULT code() const noexcept { return code_; }
    // "platform error 80004005"
    const char* what() const noexcept override { return text_.data(); }

private:
    HRESULT code_;
    std::array<char, 32> text_;
};

// The kinds differ only in their code.
template <HRESULT Code>
class hresult_error_of : public hresult_error {
public:
    hresult_error_of() noexcept : hresult_error(Code) {}
};

using hresult_access_denied = hresult_error_of<kAccessDenied>;
using hresult_wrong_thread = hresult_error_of<kWrongThread>;
using hresult_not_implemented = hresult_error_of<E_NOTIMPL>;
using hresult_invalid_argument = hresult_error_of<E_INVALIDARG>;
using hresult_out_of_bounds = hresult_error_of<kOutOfBounds>;
using hresult_no_interface = hresult_error_of<E_NOINTERFACE>;
using hresult_disconnected = hresult_error_of<kDisconnected>;
using hresult_class_not_available = hresult_error_of<kClassNotAvailable>;
using hresult_changed_state = hresult_error_of<kChangedState>;
using hresult_illegal_method_call = hresult_error_of<kIllegalMethodCall>;
using hresult_illegal_state_change = hresult_error_of<kIllegalStateChange>;
using hresult_illegal_delegate_assignment = hresult_error_of<kIllegalDelegateAssignment>;
using hresult_canceled = hresult_error_of<kCanceled>;

// Throws the kind of hresult_error for a negative code, and std::bad_alloc for 0x8007000E, which handlers for
// hresult_error therefore do not catch.
[[noreturn]] void Throw(HRESULT code);

inline void ThrowIfFailed(HRESULT code) {
    if (code < 0) {
        Throw(code);
    }
}

// Whether the code is a failure, for calls that fail in ordinary use: avoids the cost of an exception.
// 0x8007000E throws std::bad_alloc all the same.
inline bool Failed(HRESULT code) {
    if (code >= 0) {
        return false;
    }
    if (code == E_OUTOFMEMORY) {
        Throw(code);
    }
    return true;
}

// Raises the code as an operating-system exception that cannot be continued from; no catch block sees it.
[[noreturn]] void RaiseStructuredException(HRESULT code);

}  // namespace brindle
