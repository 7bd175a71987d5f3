// A window with a controller and its menu.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "event_recorder.h"
#include "platform/interfaces/property_value.h"
#include "platform/interfaces/ui_input_menu.h"
#include "platform/text.h"

namespace brindle {

inline std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

class SimulatedMenu : public SimulatorApartmentTest {
protected:
    void SetUp() override {
        SimulatorApartmentTest::SetUp();
        controller_ = MakeController(kWindow);
        ASSERT_EQ(controller_->get_Menu(menu_.Put()), S_OK);
        ASSERT_EQ(menu_->get_Items(items_.Put()), S_OK);
        dialsim_clear_journal();
    }
    void TearDown() override {
        ReleaseController();
        SimulatorApartmentTest::TearDown();
    }

    void ReleaseController() {
        items_.Reset();
        menu_.Reset();
        controller_.Reset();
    }

    template <class Class, class Factory>
    static ComPtr<Factory> FactoryOf() {
        ComPtr<Factory> factory;
        EXPECT_EQ(GetFactory<Class>(factory), S_OK);
        return factory;
    }
    static auto ItemStatics() {
        return FactoryOf<abi::RadialControllerMenuItem, abi::IRadialControllerMenuItemStatics>();
    }
    void AddKnownIcon(const char* label, int icon, std::uint32_t tag) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        EXPECT_EQ(ItemStatics()->CreateFromKnownIcon(ToPlatformString(label).Get(),
                                                     static_cast<abi::RadialControllerMenuKnownIcon>(icon),
                                                     item.Put()),
                  S_OK);
        ComPtr<abi::IInspectable> value;
        const auto values = FactoryOf<abi::PropertyValue, abi::IPropertyValueStatics>();
        EXPECT_EQ(values->CreateUInt32(tag, value.Put()), S_OK);
        EXPECT_EQ(item->put_Tag(value.Get()), S_OK);
        EXPECT_EQ(items_->Append(item.Get()), S_OK);
    }

    ComPtr<abi::IRadialController> controller_;
    ComPtr<abi::IRadialControllerMenu> menu_;
    ComPtr<abi::IVector<abi::RadialControllerMenuItem>> items_;
};

}  // namespace brindle
