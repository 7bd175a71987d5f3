// Boxed numbers and texts.
#include "platform/interfaces/property_value.h"

#include "bench/stub/factories.h"
#include "bench/stub/strings.h"

// The types that no workload uses, and arrays.
#define STUB_OTHERS(ROW)         \
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
#define STUB_ARRAYS(ROW)       \
    STUB_OTHERS(ROW)           \
    ROW(Int32, std::int32_t)   \
    ROW(UInt32, std::uint32_t) \
    ROW(String, HSTRING)       \
    ROW(Inspectable, abi::IInspectable*)

namespace stub {

namespace {

class Value : public Counted<abi::IPropertyValue> {
public:
    HRESULT get_Type(abi::PropertyType*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsNumericScalar(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT GetInt32(std::int32_t*) noexcept override { return kTypeMismatch; }
    HRESULT GetUInt32(std::uint32_t*) noexcept override { return kTypeMismatch; }
    HRESULT GetString(HSTRING*) noexcept override { return kTypeMismatch; }

#define STUB_GETTER(NAME, TYPE) \
    HRESULT Get##NAME(TYPE*) noexcept override { return kTypeMismatch; }
    STUB_OTHERS(STUB_GETTER)
#undef STUB_GETTER
#define STUB_ARRAY_GETTER(NAME, TYPE) \
    HRESULT Get##NAME##Array(std::uint32_t*, TYPE**) noexcept override { return kTypeMismatch; }
    STUB_ARRAYS(STUB_ARRAY_GETTER)
#undef STUB_ARRAY_GETTER
};

class UInt32Value final : public Value {
public:
    explicit UInt32Value(std::uint32_t value) : value_(value) {}

    HRESULT GetUInt32(std::uint32_t* result) noexcept override {
        STUB_RECORD_CALL();
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
        STUB_RECORD_CALL();
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
        STUB_RECORD_CALL();
        return value_.ReturnReference(result);
    }

private:
    const Text value_;
};

class Statics final : public StaticObject<abi::IPropertyValueStatics> {
public:
    HRESULT CreateUInt32(std::uint32_t value, abi::IInspectable** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new UInt32Value(value);
        return S_OK;
    }
    HRESULT CreateInt32(std::int32_t value, abi::IInspectable** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new Int32Value(value);
        return S_OK;
    }
    HRESULT CreateString(HSTRING value, abi::IInspectable** result) noexcept override {
        STUB_RECORD_CALL();
        *result = new TextValue(value);
        return S_OK;
    }
    HRESULT CreateEmpty(abi::IInspectable**) noexcept override { return E_NOTIMPL; }
    HRESULT CreateInspectable(abi::IInspectable*, abi::IInspectable**) noexcept override { return E_NOTIMPL; }

#define STUB_FACTORY(NAME, TYPE) \
    HRESULT Create##NAME(TYPE, abi::IInspectable**) noexcept override { return E_NOTIMPL; }
    STUB_OTHERS(STUB_FACTORY)
#undef STUB_FACTORY
#define STUB_ARRAY_FACTORY(NAME, TYPE)                                                         \
    HRESULT Create##NAME##Array(std::uint32_t, TYPE*, abi::IInspectable**) noexcept override { \
        return E_NOTIMPL;                                                                      \
    }
    STUB_ARRAYS(STUB_ARRAY_FACTORY)
#undef STUB_ARRAY_FACTORY
};

}  // namespace

abi::IUnknown& PropertyValueStatics() {
    static Statics statics;
    return statics;
}

}  // namespace stub
