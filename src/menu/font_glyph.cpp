// Items with a glyph of an installed font, or of a font file.
#include "frame/diagnostics/steps.h"
#include "menu/dial_menu.h"
#include "platform/activation.h"
#include "platform/interfaces/uri.h"

namespace brindle {

HRESULT DialMenu::AddMenuItemFromSystemFont(MenuEntry& entry, HSTRING glyph, HSTRING font_family) {
    ComPtr<abi::IRadialControllerMenuItemStatics2> statics;
    RETURN_IF_STEP_FAILS(528, GetFactory<abi::RadialControllerMenuItem>(statics));

    const TextReference label(LabelOf(entry));
    ComPtr<abi::IRadialControllerMenuItem> item;
    RETURN_IF_STEP_FAILS(531, statics->CreateFromFontGlyph(label.Get(), glyph, font_family, item.Put()));
    RETURN_IF_STEP_FAILS(533, AddItemToMenu(item.Get(), entry));
    return S_OK;
}

// The URI's absolute form and the item's text are read and not used: each is a guarded step, and an item
// whose URI or text cannot be read is deliberately not added
// (FontFileStep.ThatFailsIsTriedSixTimesAndTheEntryRecorded).
HRESULT DialMenu::AddMenuItemFromCustomFont(MenuEntry& entry, HSTRING glyph, HSTRING font_family,
                                            HSTRING short_path) {
    ComPtr<abi::IRadialControllerMenuItemStatics2> statics;
    RETURN_IF_STEP_FAILS(543, GetFactory<abi::RadialControllerMenuItem>(statics));
    ComPtr<abi::IUriRuntimeClassFactory> uris;
    RETURN_IF_STEP_FAILS(552, GetFactory<abi::Uri>(uris));

    ComPtr<abi::IUriRuntimeClass> uri;
    RETURN_IF_STEP_FAILS(556, uris->CreateUri(short_path, uri.Put()));
    if (!uri) {
        return E_NOINTERFACE;
    }
    String absolute;
    RETURN_IF_STEP_FAILS(562, uri->get_AbsoluteUri(absolute.Put()));

    const TextReference label(LabelOf(entry));
    ComPtr<abi::IRadialControllerMenuItem> item;
    RETURN_IF_STEP_FAILS(
        567, statics->CreateFromFontGlyphWithUri(label.Get(), glyph, font_family, uri.Get(), item.Put()));
    if (!item) {
        return E_NOINTERFACE;
    }
    String text;
    RETURN_IF_STEP_FAILS(573, item->get_DisplayText(text.Put()));
    RETURN_IF_STEP_FAILS(575, AddItemToMenu(item.Get(), entry));
    return S_OK;
}

}  // namespace brindle
