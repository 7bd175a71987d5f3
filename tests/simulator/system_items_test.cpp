// The system items of a window's menu.
#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

#include "platform/interfaces/ui_input_menu.h"
#include "simulated_menu.h"

namespace brindle {
namespace {

// A sequence of kinds whose owner may destroy it.
class KindList final : public abi::IIterable<abi::RadialControllerSystemMenuItemKind>,
                       public abi::IIterator<abi::RadialControllerSystemMenuItemKind> {
    using Kind = abi::RadialControllerSystemMenuItemKind;

public:
    explicit KindList(std::vector<int> kinds) : kinds_(std::move(kinds)) {}

    HRESULT QueryInterface(const GUID&, void** object) noexcept override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    std::uint32_t AddRef() noexcept override { return ++references; }
    std::uint32_t Release() noexcept override { return --references; }
    HRESULT GetIids(std::uint32_t*, GUID**) noexcept override { return E_NOTIMPL; }
    HRESULT GetRuntimeClassName(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT GetTrustLevel(abi::TrustLevel*) noexcept override { return E_NOTIMPL; }
    HRESULT First(abi::IIterator<Kind>** result) noexcept override {
        *result = nullptr;
        if (code >= 0 && gives_iterator) {
            at_ = 0;
            AddRef();
            *result = this;
        }
        return code;
    }
    HRESULT get_Current(Kind* result) noexcept override {
        *result = static_cast<Kind>(at_ < kinds_.size() ? kinds_[at_] : 0);
        return code;
    }
    HRESULT get_HasCurrent(abi::boolean* result) noexcept override {
        *result = at_ < kinds_.size();
        return code;
    }
    HRESULT MoveNext(abi::boolean* result) noexcept override {
        ++at_;
        return get_HasCurrent(result);
    }
    HRESULT GetMany(std::uint32_t, Kind*, std::uint32_t*) noexcept override {
        return code < 0 ? code : E_NOTIMPL;
    }

    std::uint32_t references = 1;
    HRESULT code = S_OK;
    bool gives_iterator = true;

private:
    const std::vector<int> kinds_;
    std::size_t at_ = 0;
};

class SystemItems : public SimulatedMenu {
protected:
    static ComPtr<abi::IRadialControllerConfiguration> ConfigurationOf(std::uint64_t window) {
        const auto factory = FactoryOf<abi::RadialControllerConfiguration, abi::IActivationFactory>();
        ComPtr<abi::IRadialControllerConfigurationInterop> interop;
        EXPECT_EQ(Query(factory.Get(), interop), S_OK);
        ComPtr<abi::IRadialControllerConfiguration> configuration;
        EXPECT_EQ(
            interop->GetForWindow(reinterpret_cast<HWND>(window), abi::IRadialControllerConfiguration::Iid,
                                  reinterpret_cast<void**>(configuration.Put())),
            S_OK);
        return configuration;
    }
    static HRESULT Set(KindList& kinds) { return ConfigurationOf(kWindow)->SetDefaultMenuItems(&kinds); }

    const std::vector<int> all_ = {0, 1, 2, 3, 4};
};

TEST_F(SystemItems, AreAllThereAtTheStart) {
    EXPECT_EQ(SystemItemsOf(kWindow), all_);
    EXPECT_EQ(SystemItemsOf(0), all_);
}

TEST_F(SystemItems, AreTheWindowsOwnAndStayInTheirOrder) {
    KindList kinds({3, 0, 3});
    EXPECT_EQ(Set(kinds), S_OK);
    EXPECT_EQ(kinds.references, 1u);
    EXPECT_EQ(SystemItemsOf(kWindow), (std::vector<int>{3, 0, 3}));
    EXPECT_EQ(SystemItemsOf(kWindow + 1), all_);
    EXPECT_EQ(FirstLine(MenuText(kWindow)), "system items: Volume, Scroll, Volume");
    std::int32_t two[] = {-1, -1};
    EXPECT_EQ(dialsim_system_items(kWindow, two, 1), 3u);
    EXPECT_EQ(two[0], 3);
    EXPECT_EQ(two[1], -1);
}

TEST_F(SystemItems, MayBeNone) {
    KindList kinds({});
    EXPECT_EQ(Set(kinds), S_OK);
    EXPECT_EQ(FirstLine(MenuText(kWindow)), "system items: none");
    EXPECT_EQ(ConfigurationOf(kWindow)->ResetToDefaultMenuItems(), S_OK);
    EXPECT_EQ(SystemItemsOf(kWindow), all_);
}

TEST_F(SystemItems, ThatDoNotExistAreRefused) {
    KindList kinds({0, 7});
    EXPECT_EQ(Set(kinds), E_INVALIDARG);
    EXPECT_EQ(dialsim_calls("system items(0, 7)"), 1u);
    KindList negative({-1});
    EXPECT_EQ(Set(negative), E_INVALIDARG);
    EXPECT_EQ(SystemItemsOf(kWindow), all_);
}

TEST_F(SystemItems, OfABrokenSequenceAreNotTaken) {
    EXPECT_EQ(ConfigurationOf(kWindow)->SetDefaultMenuItems(nullptr), E_INVALIDARG);
    KindList broken({0});
    broken.code = Code(0x80000003);
    EXPECT_EQ(Set(broken), Code(0x80000003));
    KindList empty_handed({0});
    empty_handed.gives_iterator = false;
    EXPECT_EQ(Set(empty_handed), Code(0x8000FFFF));
    EXPECT_EQ(SystemItemsOf(kWindow), all_);
}

TEST_F(SystemItems, CanBeSelectedWhileTheyAreThere) {
    KindList kinds({3});
    EXPECT_EQ(Set(kinds), S_OK);
    const auto configuration = ConfigurationOf(kWindow);
    abi::boolean selected = 2;
    const auto select = [&](int kind) {
        EXPECT_EQ(configuration->TrySelectDefaultMenuItem(
                      static_cast<abi::RadialControllerSystemMenuItemKind>(kind), &selected),
                  S_OK);
        return selected;
    };
    EXPECT_EQ(select(3), 1);
    EXPECT_EQ(select(0), 0);
}

TEST_F(SystemItems, HaveOneConfigurationAWindow) {
    const auto first = ConfigurationOf(kWindow);
    EXPECT_EQ(ConfigurationOf(kWindow).Get(), first.Get());
    EXPECT_NE(ConfigurationOf(kWindow + 1).Get(), first.Get());
    ComPtr<abi::IInspectable> instance;
    const auto factory = FactoryOf<abi::RadialControllerConfiguration, abi::IActivationFactory>();
    EXPECT_EQ(factory->ActivateInstance(instance.Put()), E_NOTIMPL);
}

TEST_F(SystemItems, TheirSequenceMayBeKeptAndUsedOnceMore) {
    KindList kinds({3});
    EXPECT_EQ(dialsim_use_kept_sequence(), S_FALSE);
    dialsim_keep_sequences(true);
    EXPECT_EQ(Set(kinds), S_OK);
    EXPECT_EQ(kinds.references, 3u);
    EXPECT_EQ(dialsim_use_kept_sequence(), S_OK);
    EXPECT_EQ(kinds.references, 1u);
    EXPECT_EQ(Set(kinds), S_OK);
    kinds.code = Code(0x80000013);
    EXPECT_EQ(dialsim_use_kept_sequence(), Code(0x80000013));
    kinds.code = S_OK;
    EXPECT_EQ(Set(kinds), S_OK);
    dialsim_reset();
    EXPECT_EQ(kinds.references, 1u);
    EXPECT_EQ(SystemItemsOf(kWindow), all_);
}

}  // namespace
}  // namespace brindle
