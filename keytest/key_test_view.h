// What the program asks of the key tester's window (`KeyTestForm`). The window decides nothing: it
// reports events and shows what it is told. Only one is ever open.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "keytest/key_test_commands.h"
#include "keytest/key_tester.h"
#include "platform/main_window_view.h"

namespace deck {

enum class KeyBox {
  kEvents,  // `RTFKeysText`: every key-down and key-up, in blue
  kNames,   // `RTFKeysDownText`: what programming files call the keys
};

// What follows from the menus.
struct KeyTestLook {
  bool viewAll = true;              // both boxes; otherwise the names alone
  std::u16string heading = {};      // `Label3`
  bool menusShown = true;           // `Label1` is green then and red otherwise
  int clearDelay = kClearDelayOff;  // the ticked item of `mnuClear500`, from 0
  bool modeWarning = false;         // `LBL_ModeWarning` is there

  friend bool operator==(const KeyTestLook&, const KeyTestLook&) = default;
};

class KeyTestView {
 public:
  struct Events {
    // Virtual-key code and modifiers (a sum of k...Modifier). True when the system must not see the
    // event.
    std::function<bool(std::int16_t code, std::int16_t modifiers)> keyDown;
    std::function<bool(std::int16_t code, std::int16_t modifiers)> keyUp;
    std::function<bool(char16_t character)> keyPress;
    // Another window or a menu had the keyboard, or has it now: then without modifiers.
    std::function<void(std::int16_t modifiers)> keysUnseen;
    std::function<void()> timer1;
    // `box` is the one whose context menu the command came from.
    std::function<void(KeyTestCommand command, KeyBox box)> command;
    std::function<void()> menusLabelClicked;   // `Label1`
    std::function<void()> modeWarningClicked;  // `LBL_ModeWarning`
    std::function<void()> boxEntered;
    std::function<void()> closing;  // the user wants the window closed
  };

  virtual ~KeyTestView() = default;

  // Set once, by the presenter. Events come only while the window is open.
  Events events;

  // Makes the window, hidden, with empty boxes.
  virtual void Open() = 0;
  // In front of the others with the keyboard, restored when it was minimised.
  virtual void Show() = 0;
  // Takes the window away, its timer included, without any further event.
  virtual void Close() = 0;

  // Behind the last line, which is scrolled into view. The line comes without its end.
  virtual void Append(KeyBox box, const std::u16string& line) = 0;
  virtual void Clear(KeyBox box) = 0;
  // Every line with CR LF behind it.
  virtual std::u16string Text(KeyBox box) const = 0;
  // Those lines only that the user has selected.
  virtual std::u16string SelectedText(KeyBox box) const = 0;

  virtual void SetLamps(const KeyLamps& lamps) = 0;
  virtual void SetLook(const KeyTestLook& look) = 0;
  // Restarts `Timer1`, which ticks until it is stopped; 0 stops it.
  virtual void SetTimer1(int milliseconds) = 0;

  // In twips, of the normal state whatever the state is.
  virtual WindowPlacement Placement() const = 0;
  // The state does not count. Moves a window that would lie outside every monitor onto the nearest.
  virtual void Place(const WindowPlacement& placement) = 0;
};

}  // namespace deck
