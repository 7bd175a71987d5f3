// Boxed numbers and texts.
#include "platform/interfaces/property_value.h"

#include "bench/stub/factories.h"
#include "bench/stub/strings.h"

// The types that no measured work boxes, and those of arrays.
#define LEAN_OTHERS(ROW)         \
    ROW(UInt8, std::uint8_t)     \
    ROW(Int16, std::int16_t)     \
    ROW(UInt16, std::uint16_t)   \
    ROW(Int64, std::int64_t)     \
    ROW(UInt64, std::uint64_t)   \
    ROW(Single, float)           \
    ROW(Double, double)          \
    ROW(Char16, WCHAR)           \
    ROW(Boolean, abi::boolean)   \
    ROW(Guid, GUID)              \
    ROW(DateTime, abi::DateTime) \
    ROW(TimeSpan, abi::TimeSpan) \
    ROW(Point, abi::Point)       \
    ROW(Size, abi::Size)         \
    ROW(Rect, abi::Rect)
#define LEAN_ARRAYS(ROW)       \
    LEAN_OTHERS(ROW)           \
    ROW(Int32, std::int32_t)   \
    ROW(UInt32, std::uint32_t) \
    ROW(String, HSTRING)       \
    ROW(Inspectable, abi::IInspectable*)

namespace lean {

namespace {

class Value : public Counted<abi::IPropertyValue> {
public:
    HRESULT get_Type(abi::PropertyType*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsNumericScalar(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT GetInt32(std::int32_t*) noexcept override { return kTypeMismatch; }
    HRESULT GetUInt32(std::uint32_t*) noexcept override { return kTypeMismatch; }
    HRESULT GetString(HSTRING*) noexcept override { return kTypeMismatch; }

#define LEAN_GETTER(NAME, TYPE) \
    HRESULT Get##NAME(TYPE*) noexcept override { return kTypeMismatch; }
    LEAN_OTHERS(LEAN_GETTER)
#undef LEAN_GETTER
#define LEAN_ARRAY_GETTER(NAME, TYPE) \
    HRESULT Get##NAME##Array(std::uint32_t*, TYPE**) noexcept override { return kTypeMismatch; }
    LEAN_ARRAYS(LEAN_ARRAY_GETTER)
#undef LEAN_ARRAY_GETTER
};

class UInt32Value final : public Value {
public:
    explicit UInt32Value(std::uint32_t value) : value_(value) {}

    HRESULT GetUInt32(std::uint32_t* result) noexcept override {
        LEAN_NOTE();
        *result = value_;
        return S_OK;
    }

private:
    const std::uint32_t value_;
};

class Int32Value final : public Value {
public:
    explicit Int32Value(std::int32_t value) : value_(value) {}

    HRESULT GetInt32(std::int32_t* result) noexcept override {
        LEAN_NOTE();
        *result = value_;
        return S_OK;
    }

private:
    const std::int32_t value_;
};

class TextValue final : public Value {
public:
    explicit TextValue(HSTRING value) : value_(value) {}

    HRESULT GetString(HSTRING* result) noexcept override {
        LEAN_NOTE();
        return value_.Hand(result);
    }

private:
    const Text value_;
};

class Statics final : public Fixed<abi::IPropertyValueStatics> {
public:
    HRESULT CreateUInt32(std::uint32_t value, abi::IInspectable** result) noexcept override {
        LEAN_NOTE();
        *result = new UInt32Value(value);
        return S_OK;
    }
    HRESULT CreateInt32(std::int32_t value, abi::IInspectable** result) noexcept override {
        LEAN_NOTE();
        *result = new Int32Value(value);
        return S_OK;
    }
    HRESULT CreateString(HSTRING value, abi::IInspectable** result) noexcept override {
        LEAN_NOTE();
        *result = new TextValue(value);
        return S_OK;
    }
    HRESULT CreateEmpty(abi::IInspectable**) noexcept override { return E_NOTIMPL; }
    HRESULT CreateInspectable(abi::IInspectable*, abi::IInspectable**) noexcept override { return E_NOTIMPL; }

#define LEAN_FACTORY(NAME, TYPE) \
    HRESULT Create##NAME(TYPE, abi::IInspectable**) noexcept override { return E_NOTIMPL; }
    LEAN_OTHERS(LEAN_FACTORY)
#undef LEAN_FACTORY
#define LEAN_ARRAY_FACTORY(NAME, TYPE)                                                         \
    HRESULT Create##NAME##Array(std::uint32_t, TYPE*, abi::IInspectable**) noexcept override { \
        return E_NOTIMPL;                                                                      \
    }
    LEAN_ARRAYS(LEAN_ARRAY_FACTORY)
#undef LEAN_ARRAY_FACTORY
};

}  // namespace

abi::IUnknown& PropertyValueStatics() {
    static Statics statics;
    return statics;
}

}  // namespace lean
