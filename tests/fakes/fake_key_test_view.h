// The key tester's window as plain values, with what a user does to it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "keytest/key_log.h"
#include "keytest/key_test_view.h"

namespace deck {

class FakeKeyTestView : public KeyTestView {
 public:
  void Open() override {
    open = true;
    visible = false;
    for (Box& box : boxes_) box = {};
    lamps = {};
    look = {};
    timer1 = 0;
  }
  void Show() override {
    visible = true;
    ++shows;
  }
  void Close() override {
    open = false;
    visible = false;
    timer1 = 0;
  }

  void Append(KeyBox box, const std::u16string& line) override { Of(box).log.Append(line); }
  void Clear(KeyBox box) override { Of(box) = {}; }
  std::u16string Text(KeyBox box) const override { return Of(box).log.Text(); }
  std::u16string SelectedText(KeyBox box) const override {
    return std::u16string(Of(box).log.Lines(Of(box).selectionStart, Of(box).selectionEnd));
  }

  void SetLamps(const KeyLamps& shown) override { lamps = shown; }
  void SetLook(const KeyTestLook& shown) override { look = shown; }
  void SetTimer1(int milliseconds) override {
    timer1 = milliseconds;
    sinceTick_ = 0;
  }

  WindowPlacement Placement() const override { return placement; }
  void Place(const WindowPlacement& place) override { placement = place; }

  // What a user does; nothing while the window is closed. Keys give back whether the event was kept
  // from the system.
  bool PressKey(std::int16_t code, std::int16_t modifiers = 0) {
    return open && events.keyDown(code, modifiers);
  }
  bool ReleaseKey(std::int16_t code, std::int16_t modifiers = 0) {
    return open && events.keyUp(code, modifiers);
  }
  bool Type(char16_t character) { return open && events.keyPress(character); }
  void LoseKeyboard() {
    if (open) events.keysUnseen(0);
  }
  void Choose(KeyTestCommand command, KeyBox box = KeyBox::kEvents) {
    if (open) events.command(command, box);
  }
  void ClickMenusLabel() {
    if (open) events.menusLabelClicked();
  }
  void ClickModeWarning() {
    if (open && look.modeWarning) events.modeWarningClicked();
  }
  void EnterBox() {
    if (open) events.boxEntered();
  }
  void CloseWindow() {
    if (open) events.closing();
  }
  // Lines from 0, `end` not included.
  void SelectLines(KeyBox box, int first, int end) {
    Of(box).selectionStart = first;
    Of(box).selectionEnd = end;
  }
  // Lets the time pass, ticks included.
  void Wait(int milliseconds) {
    for (int passed = 0; passed < milliseconds; ++passed) {
      if (timer1 == 0) return;
      if (++sinceTick_ < timer1) continue;
      sinceTick_ = 0;
      events.timer1();
    }
  }

  bool open = false;
  bool visible = false;
  int shows = 0;
  KeyLamps lamps;
  KeyTestLook look;
  int timer1 = 0;  // milliseconds, 0 while it is stopped
  WindowPlacement placement;

 private:
  struct Box {
    KeyLog log;
    int selectionStart = 0;
    int selectionEnd = 0;
  };

  Box& Of(KeyBox box) { return boxes_[static_cast<std::size_t>(box)]; }
  const Box& Of(KeyBox box) const { return boxes_[static_cast<std::size_t>(box)]; }

  std::array<Box, 2> boxes_;
  int sinceTick_ = 0;  // milliseconds
};

}  // namespace deck
