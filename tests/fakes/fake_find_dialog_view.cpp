#include "tests/fakes/fake_find_dialog_view.h"

#include <stdexcept>

namespace deck {
namespace {

enum class Kind { kCombo, kField, kBox, kButton, kOther };

Kind KindOf(FindControl control) {
  switch (control) {
    case FindControl::kComboTextFind:
    case FindControl::kComboTextReplaceFind:
    case FindControl::kComboTextReplaceWith:
      return Kind::kCombo;
    case FindControl::kLineToFind:
      return Kind::kField;
    case FindControl::kMatchCaseF:
    case FindControl::kWholeWordF:
    case FindControl::kMatchCaseR:
    case FindControl::kWholeWordR:
      return Kind::kBox;
    case FindControl::kSSTab1:
      return Kind::kOther;
    default:
      return Kind::kButton;
  }
}

void Require(bool condition, const char* rule) {
  if (!condition) throw std::logic_error(rule);
}

// Command9 and SSTab1 belong to every page.
bool IsOnPage(FindControl control, FindPage page) {
  if (control == FindControl::kSSTab1 || control == FindControl::kCommand9) return true;
  const int number = static_cast<int>(control);
  if (number < static_cast<int>(FindControl::kComboTextReplaceFind)) return page == FindPage::kFind;
  if (number < static_cast<int>(FindControl::kLineToFind)) return page == FindPage::kReplace;
  return page == FindPage::kGotoLine;
}

}  // namespace

void FakeFindDialogView::Open(FindPage page) {
  if (!open_) controls_.clear();
  open_ = true;
  minimised_ = false;
  page_ = page;
}

void FakeFindDialogView::Close() {
  open_ = false;
  minimised_ = false;
}

std::u16string FakeFindDialogView::Text(FindControl control) const {
  Require(KindOf(control) != Kind::kBox && KindOf(control) != Kind::kOther, "no text");
  const auto found = controls_.find(control);
  return open_ && found != controls_.end() ? found->second.text : std::u16string();
}

void FakeFindDialogView::SetText(FindControl control, const std::u16string& text) {
  Require(KindOf(control) != Kind::kBox && KindOf(control) != Kind::kOther, "no text");
  if (open_) controls_[control].text = text;
}

void FakeFindDialogView::AddToList(FindControl combo, const std::u16string& text) {
  Require(KindOf(combo) == Kind::kCombo, "only combo boxes have a list");
  if (open_) controls_[combo].list.push_back(text);
}

bool FakeFindDialogView::IsTicked(FindControl box) const {
  Require(KindOf(box) == Kind::kBox, "no check box");
  const auto found = controls_.find(box);
  return open_ && found != controls_.end() && found->second.ticked;
}

void FakeFindDialogView::SetTicked(FindControl box, bool ticked) {
  Require(KindOf(box) == Kind::kBox, "no check box");
  if (open_) controls_[box].ticked = ticked;
}

void FakeFindDialogView::SetEnabled(FindControl button, bool enabled) {
  Require(KindOf(button) == Kind::kButton, "no button");
  if (open_) controls_[button].enabled = enabled;
}

void FakeFindDialogView::SetDefaultButton(FindControl button) {
  Require(KindOf(button) == Kind::kButton, "no button");
  if (open_) defaultButton_ = button;
}

void FakeFindDialogView::Focus(FindControl control) {
  if (open_ && !minimised_ && CanBeUsed(control)) focus_ = control;
}

bool FakeFindDialogView::IsEnabled(FindControl button) const {
  const auto found = controls_.find(button);
  return open_ && (found == controls_.end() || found->second.enabled);
}

bool FakeFindDialogView::CanBeUsed(FindControl control) const {
  return open_ && IsOnPage(control, page_) && IsEnabled(control);
}

void FakeFindDialogView::Type(FindControl field, const std::u16string& text) {
  if (!CanBeUsed(field)) return;
  focus_ = field;
  controls_[field].text = text;
  if (KindOf(field) == Kind::kCombo && events_.textChanged) events_.textChanged(field);
}

void FakeFindDialogView::Pick(FindControl combo, int entry) {
  if (!CanBeUsed(combo)) return;
  focus_ = combo;
  controls_[combo].text = List(combo).at(static_cast<std::size_t>(entry));
  if (events_.textChanged) events_.textChanged(combo);
}

void FakeFindDialogView::Click(FindControl button) {
  if (!CanBeUsed(button)) return;
  if (button != FindControl::kCommand9) focus_ = button;
  if (KindOf(button) == Kind::kBox) controls_[button].ticked = !controls_[button].ticked;
  if (events_.clicked) events_.clicked(button);
}

void FakeFindDialogView::Choose(FindPage page) {
  if (!open_ || page == page_) return;
  page_ = page;
  focus_ = FindControl::kSSTab1;
  if (events_.pageChosen) events_.pageChosen(page);
}

void FakeFindDialogView::PressFindAgain() {
  if (open_ && events_.findAgain) events_.findAgain();
}

void FakeFindDialogView::MoveMouse() {
  if (open_ && events_.mouseMoved) events_.mouseMoved();
}

const std::vector<std::u16string>& FakeFindDialogView::List(FindControl combo) const {
  static const std::vector<std::u16string> kNone;
  const auto found = controls_.find(combo);
  return open_ && found != controls_.end() ? found->second.list : kNone;
}

}  // namespace deck
