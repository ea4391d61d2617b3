#include "tests/contract/find_dialog/find_dialog_world.h"
#include "tests/fakes/fake_find_dialog_view.h"
#include "tests/fakes/fake_prompts.h"

namespace deck {
namespace {

class FakeFindDialogWorld : public FindDialogWorld {
 public:
  FindDialogView& View() override { return view_; }

  void Type(FindControl field, const std::u16string& text) override { view_.Type(field, text); }
  void Pick(FindControl combo, int entry) override { view_.Pick(combo, entry); }
  void Click(FindControl control) override { view_.Click(control); }
  void Choose(FindPage page) override { view_.Choose(page); }
  void PressEnter() override { view_.PressEnter(); }
  void PressEscape() override { view_.PressEscape(); }
  void PressFindAgain() override { view_.PressFindAgain(); }
  void MoveMouse() override { view_.MoveMouse(); }

  FindPage Page() const override { return view_.page(); }
  bool IsMinimised() const override { return view_.minimised(); }
  bool IsEnabled(FindControl button) const override { return view_.IsEnabled(button); }
  FindControl FocusedControl() const override { return view_.focus(); }
  std::vector<std::u16string> List(FindControl combo) const override { return view_.List(combo); }
  const std::vector<Message>& Boxes() const override { return prompts_.shown; }

 private:
  FakePrompts prompts_;
  FakeFindDialogView view_{prompts_};
};

}  // namespace

std::unique_ptr<FindDialogWorld> MakeFindDialogWorld() {
  return std::make_unique<FakeFindDialogWorld>();
}

}  // namespace deck
