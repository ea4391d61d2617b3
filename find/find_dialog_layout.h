// What the window `FindAndReplace` is made of: its controls in the order in which the Tab key
// visits them, their captions and places. The window only applies it.
#pragma once

#include <optional>
#include <string_view>

#include "documents/layout.h"
#include "find/find_dialog_view.h"

namespace deck {

inline constexpr std::u16string_view kFindDialogTitle = u"Find and replace";

// By number of the page.
inline constexpr std::u16string_view kFindPageTitles[] = {u"Find", u"Replace", u"Goto line"};

enum class FindPartKind { kLabel, kCombo, kField, kTick, kButton, kTabs };

struct FindPart {
  FindPartKind kind;
  FindControl control;           // kNoControl for a label
  std::optional<FindPage> page;  // none: on every page
  std::u16string_view caption;   // "&" before the mnemonic; the find buttons get theirs later
  Rectangle place;               // in dialog units: 1/4 and 1/8 of the size of a letter
};

inline constexpr FindControl kNoControl{0};

// A label stands right before its field: programs that read the screen out take it for its name.
// SSTab1 comes last, so that it lies below the others.
inline constexpr FindPart kFindParts[] = {
    {FindPartKind::kLabel, kNoControl, FindPage::kFind, u"Fi&nd what:", {14, 29, 50, 8}},
    {FindPartKind::kCombo, FindControl::kComboTextFind, FindPage::kFind, u"", {66, 27, 130, 12}},
    {FindPartKind::kTick,
     FindControl::kMatchCaseF,
     FindPage::kFind,
     u"Match &case",
     {66, 47, 130, 10}},
    {FindPartKind::kTick,
     FindControl::kWholeWordF,
     FindPage::kFind,
     u"&Whole word only",
     {66, 61, 130, 10}},
    {FindPartKind::kButton, FindControl::kCommand1, FindPage::kFind, u"", {204, 26, 58, 14}},
    {FindPartKind::kButton, FindControl::kCommand2, FindPage::kFind, u"Close", {204, 44, 58, 14}},

    {FindPartKind::kLabel, kNoControl, FindPage::kReplace, u"Fi&nd what:", {14, 29, 50, 8}},
    {FindPartKind::kCombo,
     FindControl::kComboTextReplaceFind,
     FindPage::kReplace,
     u"",
     {66, 27, 130, 12}},
    {FindPartKind::kLabel, kNoControl, FindPage::kReplace, u"Re&place with:", {14, 47, 50, 8}},
    {FindPartKind::kCombo,
     FindControl::kComboTextReplaceWith,
     FindPage::kReplace,
     u"",
     {66, 45, 130, 12}},
    {FindPartKind::kTick,
     FindControl::kMatchCaseR,
     FindPage::kReplace,
     u"Match &case",
     {66, 65, 130, 10}},
    {FindPartKind::kTick,
     FindControl::kWholeWordR,
     FindPage::kReplace,
     u"&Whole word only",
     {66, 79, 130, 10}},
    {FindPartKind::kButton, FindControl::kCommand3, FindPage::kReplace, u"", {204, 26, 58, 14}},
    {FindPartKind::kButton,
     FindControl::kCommand5,
     FindPage::kReplace,
     u"&Replace",
     {204, 44, 58, 14}},
    {FindPartKind::kButton,
     FindControl::kCommand6,
     FindPage::kReplace,
     u"Replace &all",
     {204, 62, 58, 14}},
    {FindPartKind::kButton,
     FindControl::kCommand4,
     FindPage::kReplace,
     u"Close",
     {204, 80, 58, 14}},

    {FindPartKind::kLabel, kNoControl, FindPage::kGotoLine, u"&Line number:", {14, 29, 50, 8}},
    {FindPartKind::kField, FindControl::kLineToFind, FindPage::kGotoLine, u"", {66, 27, 60, 12}},
    {FindPartKind::kButton, FindControl::kCommand7, FindPage::kGotoLine, u"&Go", {204, 26, 58, 14}},
    {FindPartKind::kButton,
     FindControl::kCommand8,
     FindPage::kGotoLine,
     u"Close",
     {204, 44, 58, 14}},

    // Never seen, as there is a Close on every page: its number is what Esc and scripts press.
    {FindPartKind::kButton, FindControl::kCommand9, std::nullopt, u"Close", {204, 80, 58, 14}},
    {FindPartKind::kTabs, FindControl::kSSTab1, std::nullopt, u"", {6, 6, 264, 96}},
};

inline constexpr Rectangle kFindDialogClient{0, 0, 276, 108};  // in dialog units

// Average width and height of a letter of the dialog's font, in pixels.
struct LetterSize {
  int width = 0;
  int height = 0;
};

// From dialog units to pixels.
Rectangle InPixels(const Rectangle& place, const LetterSize& letter);

}  // namespace deck
