// The Windows Runtime classes that the library uses, and the interfaces of their factories.
#pragma once

#include <cstdint>

// Laid out as the platform's GUID.
struct Identifier {
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::uint8_t data4[8];
};

struct Need {
    const char* class_name;
    const char* interface_name;
    Identifier identifier;
};

inline constexpr Identifier kActivationFactory = {
    0x00000035, 0x0000, 0x0000, {0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// The classes that settings need, besides kApplicationData.
inline constexpr char kPropertyValue[] = "Windows.Foundation.PropertyValue";
inline constexpr char kPasswordVault[] = "Windows.Security.Credentials.PasswordVault";
inline constexpr char kPasswordCredential[] = "Windows.Security.Credentials.PasswordCredential";

inline constexpr Need kApplicationData = {
    "Windows.Storage.ApplicationData",
    "IApplicationDataStatics",
    {0x5612147b, 0xe843, 0x45e3, {0x94, 0xd8, 0x06, 0x16, 0x9e, 0x3c, 0x8e, 0x17}}};

inline constexpr Need kNeeds[] = {
    {"Windows.Foundation.Metadata.ApiInformation",
     "IApiInformationStatics",
     {0x997439fe, 0xf681, 0x4a11, {0xb4, 0x16, 0xc1, 0x3a, 0x47, 0xe8, 0xba, 0x36}}},
    {"Windows.UI.Input.RadialController",
     "IRadialControllerInterop",
     {0x1b0535c9, 0x57ad, 0x45c1, {0x9d, 0x79, 0xad, 0x5c, 0x34, 0x36, 0x05, 0x13}}},
    {"Windows.UI.Input.RadialControllerConfiguration", "IActivationFactory", kActivationFactory},
    {"Windows.UI.Input.RadialControllerConfiguration",
     "IRadialControllerConfigurationInterop",
     {0x787cdaac, 0x3186, 0x476d, {0x87, 0xe4, 0xb9, 0x37, 0x4a, 0x7b, 0x99, 0x70}}},
    {"Windows.UI.Input.RadialControllerMenuItem",
     "IRadialControllerMenuItemStatics",
     {0x249e0887, 0xd842, 0x4524, {0x9d, 0xf8, 0xe0, 0xd6, 0x47, 0xed, 0xc8, 0x87}}},
    {"Windows.UI.Input.RadialControllerMenuItem",
     "IRadialControllerMenuItemStatics2",
     {0x0cbb70be, 0x7e3e, 0x48bd, {0xbe, 0x04, 0x2c, 0x7f, 0xca, 0xa9, 0xc1, 0xff}}},
    {kPropertyValue,
     "IPropertyValueStatics",
     {0x629bdbc8, 0xd932, 0x4ff4, {0x96, 0xb9, 0x8d, 0x96, 0xc5, 0xc1, 0xe8, 0x58}}},
    {"Windows.Foundation.Uri",
     "IUriRuntimeClassFactory",
     {0x44a9796f, 0x723e, 0x4fdf, {0xa2, 0x18, 0x03, 0x3e, 0x75, 0xb0, 0xc0, 0x84}}},
    {"Windows.Storage.StorageFile",
     "IStorageFileStatics",
     {0x5984c710, 0xdaf2, 0x43c8, {0x8b, 0xb4, 0xa4, 0xd3, 0xea, 0xcf, 0xd0, 0x3f}}},
    {"Windows.Storage.Streams.RandomAccessStreamReference",
     "IRandomAccessStreamReferenceStatics",
     {0x857309dc, 0x3fbf, 0x4e7d, {0x98, 0x6f, 0xef, 0x3b, 0x1a, 0x07, 0xa9, 0x64}}},
    {"Windows.Devices.Enumeration.DeviceInformation",
     "IDeviceInformationStatics",
     {0xc17f100e, 0x3a46, 0x4a78, {0x80, 0x13, 0x76, 0x9d, 0xc9, 0xb9, 0x73, 0x90}}},
    kApplicationData,
    {kPasswordVault, "IActivationFactory", kActivationFactory},
    {kPasswordCredential,
     "ICredentialFactory",
     {0x54ef13a1, 0xbf26, 0x47b5, {0x97, 0xdd, 0xde, 0x77, 0x9b, 0x7c, 0xad, 0x58}}},
};
