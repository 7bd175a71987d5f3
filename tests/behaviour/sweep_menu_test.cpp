// Platform failures while a menu is filled, from each source and from all of them. Each resulting menu is
// compared, and each of its items is chosen.
#include "menu.h"
#include "support/pictures.h"
#include "sweep.h"

namespace sweep {
namespace {

constexpr char kReferences[] = "Windows.Storage.Streams.RandomAccessStreamReference";

// --- steps of every item

void Subscribe(ExpectedState& state) { ++state.items.back().subscriptions; }
void Append(ExpectedState& state) { state.menu.push_back(state.items.size() - 1); }

// A tag yielded as null is no tag.
std::function<void(ExpectedState&)> Tag(std::uint32_t item_id) {
    return [=](ExpectedState& state) {
        state.items.back().tag = state.tag_value ? std::optional(item_id) : std::nullopt;
    };
}

Row Adding(std::uint32_t item_id) {
    return Table(
               {
                   Guarded(743, Call("IRadialControllerMenuItem::add_Invoked").Does(Subscribe)),
                   Guarded(747, Call("IRadialControllerMenu::get_Items").NullEnds(kNoInterface)),
                   Guarded(750, Call("IVector<RadialControllerMenuItem>::Append").Does(Append)),
                   Guarded(754, Factory("Windows.Foundation.PropertyValue")),
                   Guarded(758, Call("IPropertyValueStatics::CreateUInt32").Gives(&ExpectedState::tag_value)),
                   Guarded(760, Call("IRadialControllerMenuItem::put_Tag").Does(Tag(item_id))),
               })
        .Needs(&ExpectedState::menu_item, kNoInterface);
}

Row Making(const char* call) {
    return Call(call).Gives(&ExpectedState::menu_item).Does([](ExpectedState& state) {
        state.items.emplace_back();
    });
}

Row Recording(std::uint32_t item_id, bool haptics) {
    return Then([=](ExpectedState& state) { state.recorded.emplace(item_id, haptics); });
}

// --- the five sources

Rows CopyingTheLabel() { return {Thrown(Text()), Thrown(Call("WindowsDuplicateString"))}; }

Rows KnownIconRows(std::uint32_t id) {
    const Row builder = Table({
                                  Thrown(Text()),
                                  Guarded(515, Making(kCreateFromKnownIcon)),
                                  Guarded(517, Adding(id)),
                              })
                            .Needs(&ExpectedState::icon_factory, kNoInterface);
    // The only factory that may be null: the item fails, not the step.
    return {Guarded(151, FactoryOrNull(kMenuItems, &ExpectedState::icon_factory)),
            Logged("AddMenuItemFromKnownIcon", 152, builder), Recording(id, true)};
}

Rows SystemFontRows(std::uint32_t id) {
    const Row builder = Table({
        Guarded(528, Factory(kMenuItems)),
        Thrown(Text()),
        Guarded(531, Making("IRadialControllerMenuItemStatics2::CreateFromFontGlyph")),
        Guarded(533, Adding(id)),
    });
    return {Thrown(Text()), Thrown(Text()), Logged("AddMenuItemFromSystemFont", 157, builder),
            Recording(id, true)};
}

Rows CustomFontRows(std::uint32_t id) {
    const Row builder = Table({
        Guarded(543, Factory(kMenuItems)),
        Guarded(552, Factory("Windows.Foundation.Uri")),
        Guarded(556, Call("IUriRuntimeClassFactory::CreateUri").NullEnds(kNoInterface)),
        Guarded(562, Call("IUriRuntimeClass::get_AbsoluteUri")),
        Thrown(Text()),
        Guarded(
            567,
            Making("IRadialControllerMenuItemStatics2::CreateFromFontGlyphWithUri").NullEnds(kNoInterface)),
        Guarded(573, Call("IRadialControllerMenuItem::get_DisplayText")),
        Guarded(575, Adding(id)),
    });
    // Without the file or its short name, the source ends.
    return {Table({
        Absent(Call("PathFileExistsW").NullEnds(0)),
        Absent(Call("GetShortPathNameW").NullEnds(0)),
        Absent(Call("GetShortPathNameW").NullEnds(0)),
        Thrown(Text()),
        Thrown(Text()),
        Thrown(Text()),
        Logged("AddMenuItemFromCustomFont", 189, builder),
        Recording(id, true),
    })};
}

Rows FilePNGRows(std::uint32_t) {
    const Row builder = Table({
        Guarded(586, Factory("Windows.Storage.StorageFile")),
        Guarded(589, Call("IStorageFileStatics::GetFileFromPathAsync").NullEnds(kNoInterface)),
        Ignored(Call("IAsyncOperation<StorageFile>::put_Completed").Gives(&ExpectedState::handler)),
    });
    return {Thrown(Text()), Logged("AddMenuItemFromFilePNG", 199, builder)};
}

Row OpeningThePicture(std::uint32_t id) {
    Rows rows = {
        Lacking(Call("IAsyncOperation<StorageFile>::GetResults").NullEnds(0)),
        Guarded(627, Factory(kReferences)),
        Guarded(630,
                Call("IRandomAccessStreamReferenceStatics::CreateFromFile").Gives(&ExpectedState::picture)),
        Guarded(639, Factory(kMenuItems)),
        Thrown(Text()),
        Guarded(642, Making("IRadialControllerMenuItemStatics::CreateFromIcon")
                         .Needs(&ExpectedState::picture, kInvalidArgument)),
        Thrown(Text()),
        Thrown(Call("WindowsDuplicateString")),
        Guarded(649, Adding(id)),
        Recording(id, false),
    };
    return Table(std::move(rows)).Needs(&ExpectedState::handler, 0).Answers(Answer::Completion);
}

Row LoadingTheResource() {
    return Table({
                     Absent(Call("FindResourceW").NullEnds(kFail)),
                     Absent(Call("SizeofResource").NullEnds(kFail)),
                     Absent(Call("LoadResource").NullEnds(kFail)),
                     Absent(Call("LockResource").NullEnds(kFail)),
                     Absent(Call("GlobalAlloc").NullEnds(kFail)),
                     Absent(Call("GlobalLock").NullEnds(kFail)),
                     Call("CreateStreamOnHGlobal").NullEnds(kFail),
                     Call("IStream::Write").NullEnds(kOutOfMemory),
                     Ignored(Call("IStream::Commit")),
                     Ignored(Call("IStream::Seek")),
                 })
        .FailsAs(kFail);
}

Rows ResourcePNGRows(std::uint32_t id) {
    const Row builder = Table({
        LoadingTheResource(),
        Guarded(671, Factory(kReferences)),
        Guarded(676, Factory(kMenuItems)),
        Guarded(700, Call("CreateRandomAccessStreamOverStream").Gives(&ExpectedState::stream)),
        Guarded(706, Call("IRandomAccessStreamReferenceStatics::CreateFromStream")
                         .NullEnds(0)
                         .Needs(&ExpectedState::stream, kInvalidArgument)),
        Thrown(Text()),
        Reported("CreateFromIcon", 715, Making("IRadialControllerMenuItemStatics::CreateFromIcon")),
        Reported("", 727, Adding(id)),
        Recording(id, true),
    });
    return {Logged("AddMenuItemFromResourcePNG", 203, builder)};
}

// --- the menu

Row Filling(std::initializer_list<Rows> items) {
    Rows rows = {
        Guarded(124, Call("IRadialController::get_Menu").NullEnds(kNoInterface)),
        Guarded(129, Call("IRadialControllerMenu::get_Items").NullEnds(kNoInterface)),
        Logged("clear", 132, Call("IVector<RadialControllerMenuItem>::Clear").Does([](ExpectedState& state) {
            state.menu.clear();
        })),
    };
    for (const Rows& item : items) {
        for (const Rows& part : {CopyingTheLabel(), item}) {
            rows.insert(rows.end(), part.begin(), part.end());
        }
    }
    return Table(std::move(rows)).Answers(Answer::Bool);
}

class MenuSweep : public Sweep {
protected:
    // Replaces a menu of one item: the item is removed, its entry stays.
    void SweepMenu(const char* name, Row filling, const std::vector<MenuItemDescription>& items,
                   std::uint32_t of_the_file = 1) {
        ExpectedState start;
        start.items = {{99, 1}};
        start.menu = {0};
        start.recorded = {{99, false}};
        InjectEachFault({.name = name,
                         .table = Table({std::move(filling), OpeningThePicture(of_the_file)}),
                         .act =
                             [this, &items] {
                                 Fill(items);
                                 log += "completed with " + Hex(dialsim_complete_all()) + "\n";
                             },
                         .prepare = [this] { ListenWithAMenu(); },
                         .start = start,
                         .check = [](const ExpectedState& state) { CheckMenu(state); }});
    }

    const TemporaryFile font_{"sweep font with a long name.ttf", SmallPng()};
    const TemporaryFile picture_{"brindle-sweep.png", SmallPng()};

private:
    void ListenWithAMenu() {
        ASSERT_EQ(initialize(), 0);
        ASSERT_TRUE(init_dial_listener(&host));
        ASSERT_TRUE(SetMenu(kWindow, {KnownIcon(99)}));
        dialsim_async(DIALSIM_HELD);
        ModuleWithPng();
    }
    void Fill(const std::vector<MenuItemDescription>& items) {
        try {
            LogResult(SetMenu(kWindow, items));
        } catch (const std::exception& error) {
            log += "raised " + std::string(error.what()) + "\n";
        }
    }

    // An item's handler finds the first entry with its identifier, which is 0 without a tag.
    static void CheckMenu(const ExpectedState& state) {
        std::string tags;
        for (std::uint32_t place = 0; place < state.menu.size(); ++place) {
            const Item& item = state.items[state.menu[place]];
            tags += (item.tag ? std::to_string(*item.tag) : "-") + "\n";
            const auto entry = state.recorded.find(item.tag.value_or(0));
            dialsim_clear_journal();
            EXPECT_EQ(dialsim_choose(kWindow, place), 0);
            for (const bool haptics : {false, true}) {
                const bool decides = entry != state.recorded.end() && entry->second == haptics;
                const std::string call =
                    "IRadialController::put_UseAutomaticHapticFeedback(" + std::to_string(haptics) + ")";
                EXPECT_EQ(dialsim_calls(call.c_str()), decides ? item.subscriptions : 0) << call;
            }
        }
        EXPECT_EQ(TagsShown(), tags);
    }
};

TEST_F(MenuSweep, OfNoItems) { SweepMenu("no items", Filling({}), {}); }

TEST_F(MenuSweep, OfAKnownIcon) {
    SweepMenu("a known icon", Filling({KnownIconRows(1)}), {WithHaptics(KnownIcon(1))});
}

TEST_F(MenuSweep, OfAGlyphOfAnInstalledFont) {
    SweepMenu("an installed font", Filling({SystemFontRows(1)}), {WithHaptics(SystemFont(1))});
}

TEST_F(MenuSweep, OfAGlyphOfAFontFile) {
    SweepMenu("a font file", Filling({CustomFontRows(1)}), {WithHaptics(CustomFont(1, font_.Path()))});
}

TEST_F(MenuSweep, OfAPictureFile) {
    SweepMenu("a picture file", Filling({FilePNGRows(1)}), {WithHaptics(FilePNG(1, picture_.Path()))});
}

TEST_F(MenuSweep, OfAPictureResource) {
    SweepMenu("a picture resource", Filling({ResourcePNGRows(1)}),
              {WithHaptics(ResourcePNG(1, ModuleWithPng(), kPngResource))});
}

TEST_F(MenuSweep, OfAllSourcesAtOnce) {
    SweepMenu("all sources",
              Filling({ResourcePNGRows(1), CustomFontRows(2), FilePNGRows(3), SystemFontRows(4),
                       KnownIconRows(5), KnownIconRows(6)}),
              {WithHaptics(ResourcePNG(1, ModuleWithPng(), kPngResource)),
               WithHaptics(CustomFont(2, font_.Path())), FilePNG(3, picture_.Path()),
               WithHaptics(SystemFont(4)), WithHaptics(KnownIcon(5)), WithHaptics(KnownIcon(6))},
              3);
}

}  // namespace
}  // namespace sweep
