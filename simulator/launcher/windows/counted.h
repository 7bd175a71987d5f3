// Reference counting of the objects that the recorder gives to the platform and to the library.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/interfaces/foundation.h"

namespace dialsim {

// Created with one reference. The classes of the simulator's platform are also journaled and tracked, which
// the recorder's own objects must not be.
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

    // Answers a query for one of the object's own interfaces.
    HRESULT ReturnThis(void** object) noexcept {
        AddRef();
        *object = static_cast<Interface*>(this);
        return S_OK;
    }

private:
    std::atomic<std::uint32_t> references_{1};
};

}  // namespace dialsim
