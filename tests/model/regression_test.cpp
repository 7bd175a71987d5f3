// Reduced failing sequences as model_tests prints them, each named after its behaviour.
#include "regression.h"

namespace model {

namespace {

constexpr std::uint64_t kWindow = 0x20316;

}  // namespace

std::vector<Regression> Regressions() {
    return {
        {"EverySourceFillsTheMenuAndEveryEventReachesTheHost",
         {
             Packaged(true),
             Initialize(),
             Listen(kWindow),
             AddMenu(kWindow,
                     {Icon(1, 3), Glyph(2, UTF16("A"), UTF16("Symbols")),
                      FontGlyph(3, File::LongFont, UTF16("B"), UTF16("Own")), PictureFile(4, File::Picture),
                      PictureResource(5, 101, UTF16("Resource"), 1), UnknownItem(7)}),
             Choose(kWindow, 4),
             Touch(kWindow, 10.7F, 20.2F, 20.6F, 5.9F),
             Turn(kWindow, 5.0).Requesting(1),
             Wait(60),
             Turn(kWindow, 30.0),
             Click(kWindow),
             Select(kWindow, 3),
             DefaultMenu(kWindow, {1, 2}),
             Present(kWindow),
             SetText(UTF16("host"), UTF16("key"), UTF16("42")),
             GetNumber(UTF16("host"), UTF16("key")),
         }},
        {"ALoadThatOutlivesItsMenuAddsNothing",
         {
             Async(true),
             Initialize(),
             Listen(kWindow),
             AddMenu(kWindow, {PictureFile(1, File::Picture)}),
             AddMenu(kWindow, {}).Failing({Fails("IRadialController::get_Menu", 0x80004005, 1, 3)}),
             CompleteAll(),
             Turn(kWindow, 1.0),
         }},
        {"AnItemGoesOnWithItsMenuWhenAnEventInsideLosesIt",
         {
             Initialize(),
             Listen(kWindow),
             AddMenu(kWindow, {Icon(1, 3)})
                 .With({{9, Click(kWindow)}})
                 .Reacting({AddMenu(kWindow, {})})
                 .Failing({Fails("IRadialController::get_Menu", 0x80004005, 2, 3)}),
         }},
        {"ATurnGoesOnWithItsMenuWhenAnEventInsideLosesIt",
         {
             Initialize(),
             Listen(kWindow),
             AddMenu(kWindow, {Icon(1, 3)}),
             Turn(kWindow, 1.0)
                 .With({{1, Click(kWindow)}})
                 .Reacting({AddMenu(kWindow, {})})
                 .Failing({Fails("IRadialControllerMenu::GetSelectedMenuItem", 0x80004005, 1, 3),
                           Fails("IRadialController::get_Menu", 0x80004005, 1, 3)}),
         }},
        {"AnIconWithoutAFactoryIsMissingAndTheNextItemFollows",
         {
             Initialize(),
             Listen(kWindow),
             AddMenu(kWindow, {Icon(1, 3), Glyph(2, UTF16("A"), UTF16("Symbols"))})
                 .Failing({YieldsNull("RoGetActivationFactory(Windows.UI.Input.RadialControllerMenuItem)")}),
         }},
        {"AShortPathThatGrowsBetweenTheQuestionsIsNone",
         {
             Initialize(),
             Listen(kWindow),
             AddMenu(kWindow, {FontGlyph(1, File::LongFont, UTF16("A"), UTF16("Own"))})
                 .Failing({Fails("GetShortPathNameW", 2)}),
         }},
    };
}

}  // namespace model
