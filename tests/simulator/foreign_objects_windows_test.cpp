// Tags and URIs of another compiler's implementation, as the system's are: in front of their function tables
// there is no type information.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "platform/interfaces/uri.h"
#include "simulated_menu.h"

namespace brindle {
namespace {

// Owned by the test, which outlives its uses; it is not reference-counted.
class RawObject {
public:
    explicit RawObject(const GUID& iid) : iid_(iid) {
        functions_ = table_.data() + kBefore;
        Set(0, &QueryInterface);
        Set(1, &Count);
        Set(2, &Count);
    }
    RawObject(const RawObject&) = delete;
    RawObject& operator=(const RawObject&) = delete;

    template <class... Arguments>
    void Set(std::size_t slot, HRESULT (*function)(Arguments...)) {
        functions_[slot] = reinterpret_cast<void*>(function);
    }
    template <class Interface>
    Interface* As() {
        return reinterpret_cast<Interface*>(this);
    }

private:
    // What dynamic_cast reads before the table is no address.
    static constexpr std::size_t kBefore = 2;

    static HRESULT QueryInterface(RawObject* self, const GUID* iid, void** object) {
        const bool known = abi::SameId(*iid, self->iid_);
        *object = known ? self : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    static HRESULT Count(RawObject*) { return 1; }

    void** functions_ = nullptr;
    std::array<void*, 64> table_{reinterpret_cast<void*>(0x10), reinterpret_cast<void*>(0x10)};
    const GUID iid_;
};

class ForeignObjects : public SimulatedMenu {
protected:
    // The menu's line of an item with this tag.
    std::string ShownWithTag(RawObject& tag) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(ItemStatics()->CreateFromKnownIcon(ToPlatformString("Volume").Get(),
                                                     abi::RadialControllerMenuKnownIcon::Volume, item.Put()),
                  S_OK);
        EXPECT_EQ(item->put_Tag(tag.As<abi::IInspectable>()), S_OK);
        EXPECT_EQ(items_->Append(item.Get()), S_OK);
        const std::string line = FirstLine(MenuText(kWindow));
        EXPECT_EQ(items_->Clear(), S_OK);
        return line;
    }
};

constexpr std::size_t kGetType = 6;
constexpr std::size_t kGetUInt32 = 12;
constexpr std::size_t kGetAbsoluteUri = 6;

HRESULT TypeIsUInt32(void*, abi::PropertyType* type) {
    *type = abi::PropertyType::UInt32;
    return S_OK;
}
HRESULT TypeIsInt32(void*, abi::PropertyType* type) {
    *type = abi::PropertyType::Int32;
    return S_OK;
}
HRESULT GetLargeNumber(void*, std::uint32_t* number) {
    *number = 4294967294;
    return S_OK;
}
HRESULT FailToGetNumber(void*, std::uint32_t*) { return E_FAIL; }
HRESULT GetAddress(void*, HSTRING* text) { return WindowsCreateString(L"file:///C:/x.ttf", 16, text); }

TEST_F(ForeignObjects, AreTagsThroughIPropertyValue) {
    RawObject tag(abi::IPropertyValue::Iid);
    tag.Set(kGetType, TypeIsUInt32);
    tag.Set(kGetUInt32, GetLargeNumber);
    EXPECT_EQ(ShownWithTag(tag), "0   \"Volume\" known icon Volume, tag 4294967294");
    tag.Set(kGetType, TypeIsInt32);
    EXPECT_EQ(ShownWithTag(tag), "0   \"Volume\" known icon Volume, tag not a number");
    tag.Set(kGetType, TypeIsUInt32);
    tag.Set(kGetUInt32, FailToGetNumber);
    EXPECT_EQ(ShownWithTag(tag), "0   \"Volume\" known icon Volume, tag not a number");
    RawObject object(abi::IInspectable::Iid);
    EXPECT_EQ(ShownWithTag(object), "0   \"Volume\" known icon Volume, tag not a number");
}

TEST_F(ForeignObjects, AreUrisThroughIUriRuntimeClass) {
    RawObject uri(abi::IUriRuntimeClass::Iid);
    uri.Set(kGetAbsoluteUri, GetAddress);
    const auto items = FactoryOf<abi::RadialControllerMenuItem, abi::IRadialControllerMenuItemStatics2>();
    const String text = ToPlatformString("A");
    ComPtr<abi::IRadialControllerMenuItem> item;
    EXPECT_EQ(items->CreateFromFontGlyphWithUri(text.Get(), text.Get(), text.Get(),
                                                uri.As<abi::IUriRuntimeClass>(), item.Put()),
              S_OK);
    EXPECT_EQ(items_->Append(item.Get()), S_OK);
    EXPECT_EQ(FirstLine(MenuText(kWindow)), "0   \"A\" glyph A of font file file:///C:/x.ttf, tag -");
}

}  // namespace
}  // namespace brindle
