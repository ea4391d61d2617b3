// What the cases of the find dialog need next to its view: a user. fake_find_dialog_world.cpp makes
// it of the stand-in, real_find_dialog_world.cpp of the real window; a program is linked to one of
// the two.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "find/find_dialog_view.h"

namespace deck {

class FindDialogWorld {
 public:
  virtual ~FindDialogWorld() = default;
  virtual FindDialogView& View() = 0;

  // What the user does. Nothing happens where a control cannot be reached.
  virtual void Type(FindControl field, const std::u16string& text) = 0;  // in place of the old text
  virtual void Pick(FindControl combo, int entry) = 0;                   // from 0
  virtual void Click(FindControl control) = 0;
  virtual void Choose(FindPage page) = 0;
  virtual void PressEnter() = 0;
  virtual void PressEscape() = 0;
  virtual void PressFindAgain() = 0;
  virtual void MoveMouse() = 0;

  // What the user sees.
  virtual FindPage Page() const = 0;
  virtual bool IsMinimised() const = 0;
  virtual bool IsEnabled(FindControl button) const = 0;
  virtual FindControl FocusedControl() const = 0;
  virtual std::vector<std::u16string> List(FindControl combo) const = 0;
  // The boxes that were shown, each closed by OK.
  virtual const std::vector<Message>& Boxes() const = 0;
};

std::unique_ptr<FindDialogWorld> MakeFindDialogWorld();

}  // namespace deck
