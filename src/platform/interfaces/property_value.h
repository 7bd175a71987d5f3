// Boxed values.
#pragma once

#include <cstdint>

#include "platform/interfaces/foundation.h"

namespace brindle::abi {

struct PropertyValue {
    static constexpr char Name[] = "Windows.Foundation.PropertyValue";
};

// An array's type is its element's type plus 1024.
enum class PropertyType : std::int32_t {
    Empty = 0,
    UInt8 = 1,
    Int16 = 2,
    UInt16 = 3,
    Int32 = 4,
    UInt32 = 5,
    Int64 = 6,
    UInt64 = 7,
    Single = 8,
    Double = 9,
    Char16 = 10,
    Boolean = 11,
    String = 12,
    Inspectable = 13,
    DateTime = 14,
    TimeSpan = 15,
    Guid = 16,
    Point = 17,
    Size = 18,
    Rect = 19,
    OtherType = 20
};

struct IPropertyValue : IInspectable {
    static constexpr GUID Iid = Id("4bd682dd-7554-40e9-9a9b-82654ede7e62");
    virtual HRESULT get_Type(PropertyType* result) noexcept = 0;
    virtual HRESULT get_IsNumericScalar(boolean* result) noexcept = 0;
    virtual HRESULT GetUInt8(std::uint8_t* result) noexcept = 0;
    virtual HRESULT GetInt16(std::int16_t* result) noexcept = 0;
    virtual HRESULT GetUInt16(std::uint16_t* result) noexcept = 0;
    virtual HRESULT GetInt32(std::int32_t* result) noexcept = 0;
    virtual HRESULT GetUInt32(std::uint32_t* result) noexcept = 0;
    virtual HRESULT GetInt64(std::int64_t* result) noexcept = 0;
    virtual HRESULT GetUInt64(std::uint64_t* result) noexcept = 0;
    virtual HRESULT GetSingle(float* result) noexcept = 0;
    virtual HRESULT GetDouble(double* result) noexcept = 0;
    virtual HRESULT GetChar16(WCHAR* result) noexcept = 0;
    virtual HRESULT GetBoolean(boolean* result) noexcept = 0;
    virtual HRESULT GetString(HSTRING* result) noexcept = 0;
    virtual HRESULT GetGuid(GUID* result) noexcept = 0;
    virtual HRESULT GetDateTime(DateTime* result) noexcept = 0;
    virtual HRESULT GetTimeSpan(TimeSpan* result) noexcept = 0;
    virtual HRESULT GetPoint(Point* result) noexcept = 0;
    virtual HRESULT GetSize(Size* result) noexcept = 0;
    virtual HRESULT GetRect(Rect* result) noexcept = 0;
    virtual HRESULT GetUInt8Array(std::uint32_t* length, std::uint8_t** values) noexcept = 0;
    virtual HRESULT GetInt16Array(std::uint32_t* length, std::int16_t** values) noexcept = 0;
    virtual HRESULT GetUInt16Array(std::uint32_t* length, std::uint16_t** values) noexcept = 0;
    virtual HRESULT GetInt32Array(std::uint32_t* length, std::int32_t** values) noexcept = 0;
    virtual HRESULT GetUInt32Array(std::uint32_t* length, std::uint32_t** values) noexcept = 0;
    virtual HRESULT GetInt64Array(std::uint32_t* length, std::int64_t** values) noexcept = 0;
    virtual HRESULT GetUInt64Array(std::uint32_t* length, std::uint64_t** values) noexcept = 0;
    virtual HRESULT GetSingleArray(std::uint32_t* length, float** values) noexcept = 0;
    virtual HRESULT GetDoubleArray(std::uint32_t* length, double** values) noexcept = 0;
    virtual HRESULT GetChar16Array(std::uint32_t* length, WCHAR** values) noexcept = 0;
    virtual HRESULT GetBooleanArray(std::uint32_t* length, boolean** values) noexcept = 0;
    virtual HRESULT GetStringArray(std::uint32_t* length, HSTRING** values) noexcept = 0;
    virtual HRESULT GetInspectableArray(std::uint32_t* length, IInspectable*** values) noexcept = 0;
    virtual HRESULT GetGuidArray(std::uint32_t* length, GUID** values) noexcept = 0;
    virtual HRESULT GetDateTimeArray(std::uint32_t* length, DateTime** values) noexcept = 0;
    virtual HRESULT GetTimeSpanArray(std::uint32_t* length, TimeSpan** values) noexcept = 0;
    virtual HRESULT GetPointArray(std::uint32_t* length, Point** values) noexcept = 0;
    virtual HRESULT GetSizeArray(std::uint32_t* length, Size** values) noexcept = 0;
    virtual HRESULT GetRectArray(std::uint32_t* length, Rect** values) noexcept = 0;

protected:
    ~IPropertyValue() = default;
};

struct IPropertyValueStatics : IInspectable {
    static constexpr GUID Iid = Id("629bdbc8-d932-4ff4-96b9-8d96c5c1e858");
    virtual HRESULT CreateEmpty(IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt8(std::uint8_t value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInt16(std::int16_t value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt16(std::uint16_t value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInt32(std::int32_t value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt32(std::uint32_t value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInt64(std::int64_t value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt64(std::uint64_t value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateSingle(float value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateDouble(double value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateChar16(WCHAR value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateBoolean(boolean value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateString(HSTRING value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInspectable(IInspectable* value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateGuid(GUID value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateDateTime(DateTime value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateTimeSpan(TimeSpan value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreatePoint(Point value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateSize(Size value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateRect(Rect value, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt8Array(std::uint32_t length, std::uint8_t* values,
                                     IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInt16Array(std::uint32_t length, std::int16_t* values,
                                     IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt16Array(std::uint32_t length, std::uint16_t* values,
                                      IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInt32Array(std::uint32_t length, std::int32_t* values,
                                     IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt32Array(std::uint32_t length, std::uint32_t* values,
                                      IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInt64Array(std::uint32_t length, std::int64_t* values,
                                     IInspectable** result) noexcept = 0;
    virtual HRESULT CreateUInt64Array(std::uint32_t length, std::uint64_t* values,
                                      IInspectable** result) noexcept = 0;
    virtual HRESULT CreateSingleArray(std::uint32_t length, float* values,
                                      IInspectable** result) noexcept = 0;
    virtual HRESULT CreateDoubleArray(std::uint32_t length, double* values,
                                      IInspectable** result) noexcept = 0;
    virtual HRESULT CreateChar16Array(std::uint32_t length, WCHAR* values,
                                      IInspectable** result) noexcept = 0;
    virtual HRESULT CreateBooleanArray(std::uint32_t length, boolean* values,
                                       IInspectable** result) noexcept = 0;
    virtual HRESULT CreateStringArray(std::uint32_t length, HSTRING* values,
                                      IInspectable** result) noexcept = 0;
    virtual HRESULT CreateInspectableArray(std::uint32_t length, IInspectable** values,
                                           IInspectable** result) noexcept = 0;
    virtual HRESULT CreateGuidArray(std::uint32_t length, GUID* values, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateDateTimeArray(std::uint32_t length, DateTime* values,
                                        IInspectable** result) noexcept = 0;
    virtual HRESULT CreateTimeSpanArray(std::uint32_t length, TimeSpan* values,
                                        IInspectable** result) noexcept = 0;
    virtual HRESULT CreatePointArray(std::uint32_t length, Point* values, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateSizeArray(std::uint32_t length, Size* values, IInspectable** result) noexcept = 0;
    virtual HRESULT CreateRectArray(std::uint32_t length, Rect* values, IInspectable** result) noexcept = 0;

protected:
    ~IPropertyValueStatics() = default;
};

}  // namespace brindle::abi
