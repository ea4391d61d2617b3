// What the commands of find, replace and goto line ask of their dialog, the window
// `FindAndReplace`. The window decides nothing: it shows what it is told and reports what the user
// did. Owned by the program's entry; used by find/find_and_replace.
//
// While the dialog is not open, orders do nothing, texts are empty and boxes not ticked.
#pragma once

#include <functional>
#include <string>

#include "platform/control_ids.h"
#include "platform/prompts.h"

namespace deck {

// The pages of `SSTab1`, from 0.
enum class FindPage { kFind = 0, kReplace = 1, kGotoLine = 2 };

// The dialog's controls, by the numbers that they have everywhere.
enum class FindControl : int {
  kSSTab1 = static_cast<int>(ControlId::kSSTab1),

  kComboTextFind = static_cast<int>(ControlId::kComboTextFind),
  kMatchCaseF = static_cast<int>(ControlId::kMatchCaseF),
  kWholeWordF = static_cast<int>(ControlId::kWholeWordF),
  kCommand1 = static_cast<int>(ControlId::kFindCommand1),  // Find
  kCommand2 = static_cast<int>(ControlId::kFindCommand2),  // Close

  kComboTextReplaceFind = static_cast<int>(ControlId::kComboTextReplaceFind),
  kComboTextReplaceWith = static_cast<int>(ControlId::kComboTextReplaceWith),
  kMatchCaseR = static_cast<int>(ControlId::kMatchCaseR),
  kWholeWordR = static_cast<int>(ControlId::kWholeWordR),
  kCommand3 = static_cast<int>(ControlId::kFindCommand3),  // Find
  kCommand5 = static_cast<int>(ControlId::kFindCommand5),  // Replace
  kCommand6 = static_cast<int>(ControlId::kFindCommand6),  // Replace all
  kCommand4 = static_cast<int>(ControlId::kFindCommand4),  // Close

  kLineToFind = static_cast<int>(ControlId::kLineToFind),
  kCommand7 = static_cast<int>(ControlId::kFindCommand7),  // Go
  kCommand8 = static_cast<int>(ControlId::kFindCommand8),  // Close

  kCommand9 = static_cast<int>(ControlId::kFindCommand9),  // unloads the dialog from every page;
                                                           // Esc and the close box are the same
};

class FindDialogView {
 public:
  // What the user does. Orders of the program raise none of these. Unset functions are not called.
  struct Events {
    // A button that can be pressed, or a box that has just changed its tick.
    std::function<void(FindControl)> clicked;
    // The text of a combo box was typed, or picked from its list.
    std::function<void(FindControl)> textChanged;
    // Another page is shown.
    std::function<void(FindPage)> pageChosen;
    // The key that repeats the search.
    std::function<void()> findAgain;
    // The pointer moved over the dialog itself or over SSTab1.
    std::function<void()> mouseMoved;
  };

  virtual ~FindDialogView() = default;

  virtual void Connect(Events events) = 0;

  virtual bool IsOpen() const = 0;
  // Brings the dialog to the front with this page. A minimised one is restored. A new one has empty
  // texts and lists, no ticks and all its buttons enabled.
  virtual void Open(FindPage page) = 0;
  virtual void Close() = 0;
  virtual void Minimise() = 0;

  // Text of a combo box or `LineToFind`, or caption of a button. A line break stays one '\n'.
  virtual std::u16string Text(FindControl control) const = 0;
  virtual void SetText(FindControl control, const std::u16string& text) = 0;
  // Adds to the end of a combo box's list.
  virtual void AddToList(FindControl combo, const std::u16string& text) = 0;
  virtual bool IsTicked(FindControl box) const = 0;
  virtual void SetTicked(FindControl box, bool ticked) = 0;
  // Buttons of pages that are not shown cannot be pressed either way.
  virtual void SetEnabled(FindControl button, bool enabled) = 0;
  // The button that Enter presses.
  virtual void SetDefaultButton(FindControl button) = 0;
  // Nothing while the control's page is not shown. The text of a field is selected.
  virtual void Focus(FindControl control) = 0;
  // Moves the dialog away from what is selected in the document that has the focus, if it hides
  // that.
  virtual void KeepClearOfSelection() = 0;
  // A message box of the dialog's own, with OK only; the main window cannot be used meanwhile.
  virtual void Tell(const Message& message) = 0;
};

}  // namespace deck
