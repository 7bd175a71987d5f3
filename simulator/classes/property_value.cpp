#include "simulator/classes/property_value.h"

#include "simulator/classes/factories.h"

// The scalar types, with the names of their getters, factories and enumerators.
#define DIALSIM_INTEGERS(ROW)  \
    ROW(UInt8, std::uint8_t)   \
    ROW(Int16, std::int16_t)   \
    ROW(UInt16, std::uint16_t) \
    ROW(Int32, std::int32_t)   \
    ROW(UInt32, std::uint32_t) \
    ROW(Int64, std::int64_t)   \
    ROW(UInt64, std::uint64_t)
#define DIALSIM_NUMBERS(ROW) \
    DIALSIM_INTEGERS(ROW)    \
    ROW(Single, float)       \
    ROW(Double, double)
#define DIALSIM_OTHERS(ROW)      \
    ROW(Char16, WCHAR)           \
    ROW(Boolean, abi::boolean)   \
    ROW(Guid, GUID)              \
    ROW(DateTime, abi::DateTime) \
    ROW(TimeSpan, abi::TimeSpan) \
    ROW(Point, abi::Point)       \
    ROW(Size, abi::Size)         \
    ROW(Rect, abi::Rect)
#define DIALSIM_ARRAYS(ROW) \
    DIALSIM_NUMBERS(ROW)    \
    DIALSIM_OTHERS(ROW)     \
    ROW(String, HSTRING)    \
    ROW(Inspectable, abi::IInspectable*)

namespace dialsim {

namespace {

using abi::PropertyType;

constexpr HRESULT kTypeMismatch = static_cast<HRESULT>(0x80028CA0);  // TYPE_E_TYPEMISMATCH

// Several types have the same representation; `type` distinguishes them.
struct Value {
    PropertyType type = PropertyType::Empty;
    std::variant<std::monostate, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t, std::uint32_t,
                 std::int64_t, std::uint64_t, float, double, WCHAR, GUID, abi::DateTime, abi::TimeSpan,
                 abi::Point, abi::Size, abi::Rect, WideString>
        held;
};

#define DIALSIM_TO_VALUE(NAME, TYPE) \
    Value ToValue(TYPE number) { return {PropertyType::NAME, number}; }
DIALSIM_INTEGERS(DIALSIM_TO_VALUE)
#undef DIALSIM_TO_VALUE
Value ToValue(bool truth) { return {PropertyType::Boolean, static_cast<abi::boolean>(truth)}; }
Value ToValue(const WideString& text) { return {PropertyType::String, text}; }

bool IsNumber(PropertyType type) { return type >= PropertyType::UInt8 && type <= PropertyType::Double; }

class BoxedValue final : public Object<abi::IPropertyValue> {
    using Interface = abi::IPropertyValue;

public:
    explicit BoxedValue(Value value) : Object(abi::PropertyValue::Name), value_(std::move(value)) {}

    const Value& value() const { return value_; }

    HRESULT get_Type(PropertyType* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Type"), "", result, [&] {
            *result = value_.type;
            return S_OK;
        });
    }
    HRESULT get_IsNumericScalar(abi::boolean* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_IsNumericScalar"), "", result, [&] {
            *result = IsNumber(value_.type);
            return S_OK;
        });
    }
    HRESULT GetString(HSTRING* result) noexcept override {
        return PerformInto(MethodName<Interface>("GetString"), "", result, [&] {
            const auto* text = std::get_if<WideString>(&value_.held);
            return text == nullptr ? kTypeMismatch : NewString(*text, result);
        });
    }

#define DIALSIM_GETTER(NAME, TYPE) \
    HRESULT Get##NAME(TYPE* result) noexcept override { return Get("Get" #NAME, PropertyType::NAME, result); }
    DIALSIM_NUMBERS(DIALSIM_GETTER)
    DIALSIM_OTHERS(DIALSIM_GETTER)
#undef DIALSIM_GETTER

#define DIALSIM_ARRAY_GETTER(NAME, TYPE)                                        \
    HRESULT Get##NAME##Array(std::uint32_t*, TYPE** values) noexcept override { \
        return RejectArray("Get" #NAME "Array", values);                        \
    }
    DIALSIM_ARRAYS(DIALSIM_ARRAY_GETTER)
#undef DIALSIM_ARRAY_GETTER

private:
    // Fails for every other type, including numbers of another width.
    template <class T>
    HRESULT Get(std::string_view method, PropertyType type, T* result) {
        return PerformInto(MethodName<Interface>(method), "", result, [&] {
            if (value_.type != type) {
                return kTypeMismatch;
            }
            *result = std::get<T>(value_.held);
            return S_OK;
        });
    }
    template <class T>
    HRESULT RejectArray(std::string_view method, T** values) {
        return PerformInto(MethodName<Interface>(method), "", values, [] { return kTypeMismatch; });
    }

    const Value value_;
};

class PropertyValueStatics final : public Object<abi::IPropertyValueStatics> {
    using Interface = abi::IPropertyValueStatics;

public:
    PropertyValueStatics() : Object(TypeName<Interface>()) {}

    // An empty value is a null pointer.
    HRESULT CreateEmpty(abi::IInspectable** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateEmpty"), "", result, [] { return S_OK; });
    }
    HRESULT CreateString(HSTRING value, abi::IInspectable** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateString"), "", result, [&] {
            return Box({PropertyType::String, WideString(View(value))}, result);
        });
    }
    // Returns the object itself.
    HRESULT CreateInspectable(abi::IInspectable* value, abi::IInspectable** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateInspectable"), "", result,
                           [&] { return Ref(value).CopyTo(result); });
    }

#define DIALSIM_FACTORY(NAME, TYPE)                                                  \
    HRESULT Create##NAME(TYPE value, abi::IInspectable** result) noexcept override { \
        return PerformInto(MethodName<Interface>("Create" #NAME), "", result, [&] {  \
            return Box({PropertyType::NAME, value}, result);                         \
        });                                                                          \
    }
    DIALSIM_NUMBERS(DIALSIM_FACTORY)
    DIALSIM_OTHERS(DIALSIM_FACTORY)
#undef DIALSIM_FACTORY

    // The simulator has no array values.
#define DIALSIM_ARRAY_FACTORY(NAME, TYPE)                                                             \
    HRESULT Create##NAME##Array(std::uint32_t, TYPE*, abi::IInspectable** result) noexcept override { \
        return PerformInto(MethodName<Interface>("Create" #NAME "Array"), "", result,                 \
                           [] { return E_NOTIMPL; });                                                 \
    }
    DIALSIM_ARRAYS(DIALSIM_ARRAY_FACTORY)
#undef DIALSIM_ARRAY_FACTORY

private:
    static HRESULT Box(Value value, abi::IInspectable** result) {
        return Make<BoxedValue>(std::move(value)).CopyTo(result);
    }
};

}  // namespace

Ref<abi::IInspectable> MakePropertyValueStatics() {
    return Ref<abi::IInspectable>::Attach(new PropertyValueStatics);
}

Ref<abi::IInspectable> Box(const Scalar& scalar) {
    const auto value = [](const auto& held) { return ToValue(held); };
    return Ref<abi::IInspectable>::Attach(new BoxedValue(std::visit(value, scalar)));
}

std::optional<std::uint32_t> UnboxUInt32(abi::IInspectable& object) {
    const auto value = QueryFor<abi::IPropertyValue>(&object);
    PropertyType type{};
    std::uint32_t number = 0;
    if (!value || value->get_Type(&type) < 0 || type != PropertyType::UInt32 ||
        value->GetUInt32(&number) < 0) {
        return {};
    }
    return number;
}

std::optional<Scalar> Unbox(abi::IInspectable* object) {
    const auto* boxed = OwnObject<BoxedValue>(object);
    if (boxed == nullptr) {
        return {};
    }
    const auto& [type, held] = boxed->value();
    switch (type) {
#define DIALSIM_UNBOX(NAME, TYPE) \
    case PropertyType::NAME:      \
        return std::get<TYPE>(held);
        DIALSIM_INTEGERS(DIALSIM_UNBOX)
#undef DIALSIM_UNBOX
        case PropertyType::Boolean:
            return std::get<abi::boolean>(held) != 0;
        case PropertyType::String:
            return std::get<WideString>(held);
        default:
            return {};
    }
}

}  // namespace dialsim
