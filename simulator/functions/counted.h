// Reference counting of objects that are neither journaled nor classes of the simulated platform.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/types.h"

namespace dialsim {

// Created with one reference.
template <class Interface>
class Counted : public Interface {
public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    std::uint32_t AddRef() noexcept final { return ++references_; }
    std::uint32_t Release() noexcept final {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~Counted() = default;

    // Answers a query: with the object itself when it has the interface.
    HRESULT ReturnThis(bool has_interface, void** object) noexcept {
        *object = has_interface ? static_cast<Interface*>(this) : nullptr;
        if (!has_interface) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    std::atomic<std::uint32_t> references_{1};
};

}  // namespace dialsim
