#include "simulator/classes/menu_item.h"

#include <array>

#include "simulator/classes/factories.h"
#include "simulator/classes/png_header.h"
#include "simulator/classes/streams.h"
#include "simulator/classes/uri.h"

namespace dialsim {

MenuItem::MenuItem(WideView label, Picture picture)
    : Object(abi::RadialControllerMenuItem::Name), label_(label), picture_(std::move(picture)) {}

HRESULT MenuItem::get_DisplayText(HSTRING* result) noexcept {
    return PerformInto(MethodName<Interface>("get_DisplayText"), "", result,
                       [&] { return NewString(label_, result); });
}

HRESULT MenuItem::get_Tag(abi::IInspectable** result) noexcept {
    return PerformInto(MethodName<Interface>("get_Tag"), "", result, [&] {
        const std::lock_guard guard(mutex_);
        return tag_.CopyTo(result);
    });
}

HRESULT MenuItem::put_Tag(abi::IInspectable* value) noexcept {
    return Perform(MethodName<Interface>("put_Tag"), "", [&] {
        Ref<abi::IInspectable> tag(value);  // the old tag is released after the lock
        const std::lock_guard guard(mutex_);
        std::swap(tag_, tag);
        return S_OK;
    });
}

HRESULT MenuItem::add_Invoked(
    abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>* handler,
    EventRegistrationToken* result) noexcept {
    return PerformInto(MethodName<Interface>("add_Invoked"), "", result,
                       [&] { return invoked_.Add(handler, result); });
}

HRESULT MenuItem::remove_Invoked(EventRegistrationToken token) noexcept {
    return Perform(MethodName<Interface>("remove_Invoked"), "", [&] { return invoked_.Remove(token); });
}

Outcome MenuItem::Invoke() {
    return invoked_.Raise(static_cast<Interface*>(this), static_cast<abi::IInspectable*>(nullptr));
}

namespace {

constexpr std::array<const char*, 9> kIconNames = {
    "Scroll", "Zoom",     "UndoRedo",     "Volume", "NextPreviousTrack",
    "Ruler",  "InkColor", "InkThickness", "PenType"};

// Icons are small. A longer file is read in part and cannot be drawn.
constexpr std::size_t kMaxPngBytes = 65536;

// "PNG file 32x32"
Picture PictureOf(abi::IRandomAccessStreamReference* icon) {
    const JournalPause no_journal;
    Picture picture{"broken picture", Ref(icon), ReadPrefix(icon, kMaxPngBytes)};
    if (const auto size = SizeOfPng(picture.png)) {
        picture.source = "PNG " + KindOfReference(icon) + " " + std::to_string(size->width) + "x" +
                         std::to_string(size->height);
    }
    return picture;
}

class MenuItemStatics final
    : public Object<abi::IRadialControllerMenuItemStatics, abi::IRadialControllerMenuItemStatics2> {
    using First = abi::IRadialControllerMenuItemStatics;
    using Second = abi::IRadialControllerMenuItemStatics2;
    using Item = abi::IRadialControllerMenuItem;

public:
    MenuItemStatics() : Object(TypeName<First>()) {}

    // Reads the picture now: its source may be deleted during the lifetime of the item.
    HRESULT CreateFromIcon(HSTRING label, abi::IRandomAccessStreamReference* icon,
                           Item** result) noexcept override {
        return PerformInto(MethodName<First>("CreateFromIcon"), Narrow(View(label)), result, [&] {
            return icon == nullptr ? E_INVALIDARG : MakeItem(label, PictureOf(icon), result);
        });
    }
    HRESULT CreateFromKnownIcon(HSTRING label, abi::RadialControllerMenuKnownIcon icon,
                                Item** result) noexcept override {
        const auto number = static_cast<std::uint32_t>(icon);
        return PerformInto(MethodName<First>("CreateFromKnownIcon"), std::to_string(number), result, [&] {
            if (number >= kIconNames.size()) {
                return E_INVALIDARG;
            }
            Picture picture{std::string("known icon ") + kIconNames[number]};
            picture.known_icon = number;
            return MakeItem(label, std::move(picture), result);
        });
    }
    HRESULT CreateFromFontGlyph(HSTRING label, HSTRING glyph, HSTRING family,
                                Item** result) noexcept override {
        const std::string source = "glyph " + Narrow(View(glyph)) + " of " + Narrow(View(family));
        return PerformInto(MethodName<Second>("CreateFromFontGlyph"), source, result,
                           [&] { return MakeItem(label, GlyphOf(source, glyph, family, {}), result); });
    }
    HRESULT CreateFromFontGlyphWithUri(HSTRING label, HSTRING glyph, HSTRING family,
                                       abi::IUriRuntimeClass* uri, Item** result) noexcept override {
        const std::string file = AbsoluteUri(uri);
        const std::string source = "glyph " + Narrow(View(glyph)) + " of font file " + file;
        return PerformInto(MethodName<Second>("CreateFromFontGlyphWithUri"), source, result, [&] {
            return uri == nullptr ? E_INVALIDARG
                                  : MakeItem(label, GlyphOf(source, glyph, family, file), result);
        });
    }

private:
    static Picture GlyphOf(const std::string& source, HSTRING glyph, HSTRING family, std::string file) {
        Picture picture{source};
        picture.glyph = View(glyph);
        picture.font_family = View(family);
        picture.font_file = std::move(file);
        return picture;
    }
    static HRESULT MakeItem(HSTRING label, Picture picture, Item** result) {
        return Make<MenuItem>(View(label), std::move(picture)).CopyTo(result);
    }
};

}  // namespace

Ref<abi::IInspectable> MakeMenuItemStatics() {
    return Ref<abi::IInspectable>::Attach(
        static_cast<abi::IRadialControllerMenuItemStatics*>(new MenuItemStatics));
}

Ref<abi::IRadialControllerMenuItem> MakeItem(const std::string& label, abi::IInspectable* tag) {
    auto item = Make<MenuItem>(Widen(label), Picture{"no picture"});
    const JournalPause no_journal;
    item->put_Tag(tag);
    return Ref<abi::IRadialControllerMenuItem>(item.get());
}

}  // namespace dialsim
