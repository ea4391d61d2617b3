#include <gtest/gtest.h>

#include "tests/contract/info_window/info_window_world.h"

namespace deck {
namespace {

// Whole pixels at 96 and 144 dpi, inside the smallest screen.
constexpr InfoWindowPlace kPlace{.top = 900, .left = 1500, .height = 6000, .width = 7500};
constexpr InfoWindowPlace kOtherPlace{.top = 1800, .left = 600, .height = 4500, .width = 9000};
constexpr std::string_view kPage = "{\\rtf1 first page}";
constexpr std::string_view kOtherPage = "{\\rtf1 second page}";

class InfoWindowContract : public testing::Test {
 protected:
  std::unique_ptr<InfoWindowWorld> world = MakeInfoWindowWorld();
  InfoWindowView& view = world->View();
};

TEST_F(InfoWindowContract, StaysHiddenUntilItIsShown) {
  view.Load(kPlace);
  EXPECT_FALSE(world->IsVisible());
  view.Show();
  EXPECT_TRUE(world->IsVisible());
}

TEST_F(InfoWindowContract, StandsInTheTwipsItWasLoadedWith) {
  view.Load(kPlace);
  EXPECT_EQ(view.Place(), kPlace);
  view.Show();
  EXPECT_EQ(view.Place(), kPlace);
}

TEST_F(InfoWindowContract, TellsWhereTheUserHasPutIt) {
  view.Load(kPlace);
  view.Show();
  world->MoveTo(kOtherPlace);
  EXPECT_EQ(view.Place(), kOtherPlace);
}

TEST_F(InfoWindowContract, TellsItsNormalPlaceWhileMinimised) {
  view.Load(kPlace);
  view.Show();
  view.Minimise();
  EXPECT_TRUE(world->IsMinimised());
  EXPECT_EQ(view.Place(), kPlace);
}

TEST_F(InfoWindowContract, ComesBackWhenItIsShownAgain) {
  view.Load(kPlace);
  view.Show();
  view.Minimise();
  view.Show();
  EXPECT_FALSE(world->IsMinimised());
  EXPECT_TRUE(world->IsVisible());
}

TEST_F(InfoWindowContract, BeginsEmpty) {
  view.Load(kPlace);
  EXPECT_EQ(world->Text(), u"");
}

TEST_F(InfoWindowContract, PageReplacesWhatWasThere) {
  view.Load(kPlace);
  view.ShowPage(kPage);
  EXPECT_EQ(world->Text(), u"first page");
  view.ShowPage(kOtherPage);
  EXPECT_EQ(world->Text(), u"second page");
}

TEST_F(InfoWindowContract, BytesThatAreNoRichTextLeaveThePage) {
  view.Load(kPlace);
  view.ShowPage(kPage);
  for (const std::string_view bytes : {"", "plain text",
                                       "\x7F"
                                       "ELF",
                                       "{\\rt"}) {
    view.ShowPage(bytes);
    EXPECT_EQ(world->Text(), u"first page");
  }
}

TEST_F(InfoWindowContract, TextCannotBeChangedByTyping) {
  view.Load(kPlace);
  view.Show();
  view.ShowPage(kPage);
  world->Type(u'x');
  EXPECT_EQ(world->Text(), u"first page");
}

TEST_F(InfoWindowContract, EndsWithItsPage) {
  view.Load(kPlace);
  view.Show();
  view.ShowPage(kPage);
  view.Unload();
  EXPECT_FALSE(world->IsVisible());
  view.Unload();
  view.Load(kOtherPlace);
  EXPECT_EQ(view.Place(), kOtherPlace);
  EXPECT_EQ(world->Text(), u"");
  EXPECT_FALSE(world->IsMinimised());
}

}  // namespace
}  // namespace deck
