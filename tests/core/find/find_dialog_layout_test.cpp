#include "find/find_dialog_layout.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "find/move_aside.h"

namespace deck {
namespace {

constexpr FindPage kPages[] = {FindPage::kFind, FindPage::kReplace, FindPage::kGotoLine};

char16_t MnemonicOf(std::u16string_view caption) {
  const std::size_t mark = caption.find(u'&');
  if (mark == std::u16string_view::npos || mark + 1 == caption.size()) return u'\0';
  const char16_t letter = caption[mark + 1];
  return letter >= u'a' && letter <= u'z' ? static_cast<char16_t>(letter - u'a' + u'A') : letter;
}

bool Contains(const Rectangle& outer, const Rectangle& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right() <= outer.right() &&
         inner.bottom() <= outer.bottom();
}

const FindPart& PartOf(FindControl control) {
  for (const FindPart& part : kFindParts) {
    if (part.control == control) return part;
  }
  throw std::logic_error("no such control");
}

TEST(FindDialogLayout, HasEveryControlOnce) {
  std::map<FindControl, int> count;
  for (const FindPart& part : kFindParts) ++count[part.control];
  for (const auto& [control, times] : count) {
    if (control != kNoControl) {
      EXPECT_EQ(times, 1) << static_cast<int>(control);
    }
  }
  EXPECT_EQ(count.size(), 19u) << "all controls, and the labels";
}

TEST(FindDialogLayout, NoTwoMnemonicsOfAPageAreTheSame) {
  for (const FindPage page : kPages) {
    std::set<char16_t> seen;
    for (const FindPart& part : kFindParts) {
      const char16_t mnemonic = MnemonicOf(part.caption);
      if (part.page != page || mnemonic == u'\0') continue;
      EXPECT_TRUE(seen.insert(mnemonic).second)
          << static_cast<int>(page) << ' ' << static_cast<char>(mnemonic);
    }
    EXPECT_FALSE(seen.empty());
  }
}

TEST(FindDialogLayout, EveryFieldHasALabelWithAMnemonicRightBeforeIt) {
  const FindPart* before = nullptr;
  for (const FindPart& part : kFindParts) {
    if (part.kind == FindPartKind::kCombo || part.kind == FindPartKind::kField) {
      ASSERT_NE(before, nullptr);
      EXPECT_EQ(before->kind, FindPartKind::kLabel);
      EXPECT_EQ(before->page, part.page);
      EXPECT_NE(MnemonicOf(before->caption), u'\0');
    }
    before = &part;
  }
}

class FindDialogPlaces : public testing::TestWithParam<LetterSize> {};

TEST_P(FindDialogPlaces, NothingOverlapsAndAllOfAPageIsInsideTheTabs) {
  const LetterSize letter = GetParam();
  const Rectangle tabs = InPixels(PartOf(FindControl::kSSTab1).place, letter);
  EXPECT_TRUE(Contains(InPixels(kFindDialogClient, letter), tabs));
  for (const FindPart& part : kFindParts) {
    if (!part.page) continue;
    const Rectangle place = InPixels(part.place, letter);
    EXPECT_TRUE(Contains(tabs, place)) << static_cast<int>(part.control);
    EXPECT_GT(place.height, letter.height - 1);
    for (const FindPart& other : kFindParts) {
      if (&other == &part || other.page != part.page) continue;
      EXPECT_FALSE(Overlap(place, InPixels(other.place, letter)))
          << static_cast<int>(part.control) << " and " << static_cast<int>(other.control);
    }
  }
}

TEST_P(FindDialogPlaces, ButtonsOfAPageStandInOneColumnOfEqualOnes) {
  const LetterSize letter = GetParam();
  const Rectangle first = InPixels(PartOf(FindControl::kCommand1).place, letter);
  for (const FindPart& part : kFindParts) {
    if (part.kind != FindPartKind::kButton || !part.page) continue;
    const Rectangle place = InPixels(part.place, letter);
    EXPECT_EQ(place.left, first.left);
    EXPECT_EQ(place.width, first.width);
    EXPECT_NEAR(place.height, first.height, 1);
  }
}

// The system's dialog font at 96, 120, 144 and 192 dpi.
INSTANTIATE_TEST_SUITE_P(Fonts, FindDialogPlaces,
                         testing::Values(LetterSize{6, 13}, LetterSize{7, 15}, LetterSize{9, 20},
                                         LetterSize{11, 25}, LetterSize{14, 32}));

TEST(FindDialogLayout, GrowsInProportionToTheLetters) {
  EXPECT_EQ(InPixels({4, 8, 8, 16}, {7, 15}), (Rectangle{7, 15, 14, 30}));
  EXPECT_EQ(InPixels({4, 8, 8, 16}, {14, 30}), (Rectangle{14, 30, 28, 60}));
}

}  // namespace
}  // namespace deck
