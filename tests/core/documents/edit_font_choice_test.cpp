#include "documents/edit_font_choice.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

constexpr bool kFixed = true;
constexpr bool kScalable = true;

const InstalledFont kArial = {u"Arial", !kFixed, kScalable};
const InstalledFont kFixedsys = {u"Fixedsys", kFixed, !kScalable};
const InstalledFont kConsolas = {u"Consolas", kFixed, kScalable};
const InstalledFont kLucida = {u"Lucida Console", kFixed, kScalable};
const InstalledFont kCourier = {u"Courier New", kFixed, kScalable};
const InstalledFont kOther = {u"Other Mono", kFixed, kScalable};

TEST(ChooseEditFont, TakesFixedsysAtOrdinaryResolution) {
  EXPECT_EQ(ChooseEditFont({kArial, kConsolas, kFixedsys}, 96), (EditFontChoice{u"Fixedsys", 9}));
}

TEST(ChooseEditFont, TakesAScalableFontWhereFixedsysWouldBeTooSmall) {
  EXPECT_EQ(ChooseEditFont({kFixedsys, kConsolas}, 144), (EditFontChoice{u"Consolas", 10}));
  EXPECT_EQ(ChooseEditFont({{u"fixedsys", kFixed, kScalable}, kConsolas}, 144),
            (EditFontChoice{u"fixedsys", 9}));
}

TEST(ChooseEditFont, PrefersConsolasThenLucidaConsoleThenCourierNew) {
  EXPECT_EQ(ChooseEditFont({kOther, kCourier, kLucida, kConsolas}, 96).face, u"Consolas");
  EXPECT_EQ(ChooseEditFont({kOther, kCourier, kLucida}, 96).face, u"Lucida Console");
  EXPECT_EQ(ChooseEditFont({kOther, kCourier}, 96).face, u"Courier New");
}

TEST(ChooseEditFont, TakesAnyFixedPitchFontThatScalesOtherwise) {
  const InstalledFont vertical = {u"@Other Mono", kFixed, kScalable};
  const InstalledFont raster = {u"Terminal", kFixed, !kScalable};
  EXPECT_EQ(ChooseEditFont({kArial, raster, vertical, kOther}, 96).face, u"Other Mono");
}

TEST(ChooseEditFont, LeavesTheFaceToTheSystemWhenThereIsNone) {
  EXPECT_EQ(ChooseEditFont({kArial}, 96), (EditFontChoice{u"", 10}));
  EXPECT_EQ(ChooseEditFont({}, 192), (EditFontChoice{u"", 10}));
}

}  // namespace
}  // namespace deck
