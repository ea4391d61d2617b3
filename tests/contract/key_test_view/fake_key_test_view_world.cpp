#include "tests/contract/key_test_view/key_test_view_world.h"
#include "tests/fakes/fake_key_test_view.h"

namespace deck {
namespace {

class FakeKeyTestViewWorld : public KeyTestViewWorld {
 public:
  KeyTestView& View() override { return view_; }

  void PressKey(std::int16_t code) override { view_.PressKey(code); }
  void ReleaseKey(std::int16_t code) override { view_.ReleaseKey(code); }
  void Type(char16_t character) override { view_.Type(character); }
  void LoseKeyboard() override { view_.LoseKeyboard(); }
  void Choose(KeyTestCommand command) override { view_.Choose(command); }
  void ClickMenusLabel() override { view_.ClickMenusLabel(); }
  void ClickModeWarning() override { view_.ClickModeWarning(); }
  void ClickBox(KeyBox) override { view_.EnterBox(); }
  void SelectLines(KeyBox box, int first, int end) override { view_.SelectLines(box, first, end); }
  void CloseWindow() override { view_.CloseWindow(); }
  void Wait(int milliseconds) override { view_.Wait(milliseconds); }

  bool IsOpen() const override { return view_.open; }
  bool IsVisible() const override { return view_.visible; }
  KeyLamps SeenLamps() const override { return view_.lamps; }
  KeyTestLook SeenLook() const override { return view_.look; }

 private:
  FakeKeyTestView view_;
};

}  // namespace

std::unique_ptr<KeyTestViewWorld> MakeKeyTestViewWorld() {
  return std::make_unique<FakeKeyTestViewWorld>();
}

}  // namespace deck
