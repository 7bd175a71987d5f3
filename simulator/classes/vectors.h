// The platform's collections.
#pragma once

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/interfaces/collections.h"
#include "simulator/classes/object.h"

namespace dialsim {

inline constexpr HRESULT kOutOfBounds = static_cast<HRESULT>(0x8000000B);  // E_BOUNDS

// An immutable list of objects.
template <class T>
class VectorView final : public Object<abi::IVectorView<T>> {
    using Interface = abi::IVectorView<T>;
    using Element = typename T::Default;

public:
    explicit VectorView(std::vector<Ref<Element>> elements)
        : Object<Interface>(TypeName<Interface>()), elements_(std::move(elements)) {}

    HRESULT GetAt(std::uint32_t index, Element** result) noexcept override {
        return PerformInto(MethodName<Interface>("GetAt"), std::to_string(index), result, [&] {
            return index < elements_.size() ? elements_[index].CopyTo(result) : kOutOfBounds;
        });
    }
    HRESULT get_Size(std::uint32_t* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Size"), "", result, [&] {
            *result = static_cast<std::uint32_t>(elements_.size());
            return S_OK;
        });
    }
    HRESULT IndexOf(Element* value, std::uint32_t* index, abi::boolean* result) noexcept override {
        return PerformInto(MethodName<Interface>("IndexOf"), "", result, [&] {
            const auto found = std::find_if(elements_.begin(), elements_.end(),
                                            [&](const auto& element) { return element.get() == value; });
            *index = static_cast<std::uint32_t>(found == elements_.end() ? 0 : found - elements_.begin());
            *result = found != elements_.end();
            return S_OK;
        });
    }
    HRESULT GetMany(std::uint32_t start, std::uint32_t count, Element** items,
                    std::uint32_t* result) noexcept override {
        return PerformInto(MethodName<Interface>("GetMany"), "", result, [&] {
            *result = 0;
            while (*result < count && start + *result < elements_.size()) {
                elements_[start + *result].CopyTo(&items[*result]);
                ++*result;
            }
            return S_OK;
        });
    }

private:
    const std::vector<Ref<Element>> elements_;
};

}  // namespace dialsim
