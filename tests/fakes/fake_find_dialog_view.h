// The dialog `FindAndReplace` as plain values (proved like the real one by the contract suite),
// plus what a user does with it. What the program may not ask for (the caption of a combo box)
// throws.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "find/find_dialog_view.h"

namespace deck {

class FakeFindDialogView : public FindDialogView {
 public:
  // Message boxes are shown by `prompts`.
  explicit FakeFindDialogView(Prompts& prompts) : prompts_(prompts) {}

  void Connect(Events events) override { events_ = std::move(events); }
  bool IsOpen() const override { return open_; }
  void Open(FindPage page) override;
  void Close() override;
  void Minimise() override { minimised_ = open_; }
  std::u16string Text(FindControl control) const override;
  void SetText(FindControl control, const std::u16string& text) override;
  void AddToList(FindControl combo, const std::u16string& text) override;
  bool IsTicked(FindControl box) const override;
  void SetTicked(FindControl box, bool ticked) override;
  void SetEnabled(FindControl button, bool enabled) override;
  void SetDefaultButton(FindControl button) override;
  void Focus(FindControl control) override;
  void KeepClearOfSelection() override { timesKeptClear_ += open_ && !minimised_; }
  void Tell(const Message& message) override { prompts_.Show(message); }

  // The user. Nothing happens where the real control could not be reached.
  void Type(FindControl field, const std::u16string& text);  // in place of what is there
  void Pick(FindControl combo, int entry);                   // from 0
  void Click(FindControl button);
  void Choose(FindPage page);
  void PressEnter() { Click(defaultButton_); }
  void PressEscape() { Click(FindControl::kCommand9); }
  void PressFindAgain();
  void MoveMouse();

  FindPage page() const { return page_; }
  bool minimised() const { return minimised_; }
  bool IsEnabled(FindControl button) const;
  FindControl defaultButton() const { return defaultButton_; }
  // The control that has the focus when the dialog is active.
  FindControl focus() const { return focus_; }
  const std::vector<std::u16string>& List(FindControl combo) const;
  int timesKeptClear() const { return timesKeptClear_; }

 private:
  struct Control {
    std::u16string text;
    std::vector<std::u16string> list;
    bool ticked = false;
    bool enabled = true;
  };

  bool CanBeUsed(FindControl control) const;

  Prompts& prompts_;
  Events events_;
  bool open_ = false;
  bool minimised_ = false;
  FindPage page_ = FindPage::kFind;
  std::map<FindControl, Control> controls_;
  FindControl defaultButton_ = FindControl::kCommand1;
  FindControl focus_ = FindControl::kSSTab1;
  int timesKeptClear_ = 0;
};

}  // namespace deck
