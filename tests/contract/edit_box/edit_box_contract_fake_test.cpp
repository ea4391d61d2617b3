// The suite of edit boxes on the one in memory.
#include "tests/contract/edit_box_contract.h"
#include "tests/fakes/fake_edit_box.h"

namespace deck {
namespace {

class FakeEditBoxDriver {
 public:
  EditBox& box() { return box_; }
  void Type(std::u16string_view text) { box_.Type(text); }
  void MoveCaret(TextSpan selection) { box_.MoveCaret(selection); }
  void MoveMouse() { box_.MoveMouse(); }
  bool IsVisible() const { return box_.visible(); }
  bool IsFocused() const { return box_.focused(); }
  void FocusElsewhere() { other_.Focus(); }

  EventCounts events;

 private:
  FakeEditBox box_{Counting(events)};
  FakeEditBox other_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, EditBoxContract, FakeEditBoxDriver);

}  // namespace
}  // namespace deck
