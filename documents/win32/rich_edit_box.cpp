#include "documents/win32/rich_edit_box.h"

#include <commctrl.h>
#include <ole2.h>
#include <richedit.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/scope_value.h"
#include "platform/text_edits.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/paint_pause.h"
#include "platform/win32/subclass.h"
#include "platform/win32/wine.h"

namespace deck {
namespace {

// Measured (docs/rich_edit.md): one edit in the living control costs about as much as loading six
// lines, and more for each line it takes away.
constexpr int kCharactersPerLine = 32;
constexpr int kLinesPerEdit = 8;
constexpr int kAlwaysInPlace = 20;

bool IsRebuildingCheaper(const std::vector<TextEdit>& edits, int textLength) {
  long long cost = 0;
  for (const TextEdit& edit : edits) {
    const long long touched = edit.span.length + static_cast<long long>(edit.replacement.size());
    cost += 1 + touched / kCharactersPerLine;
  }
  return cost > kAlwaysInPlace + textLength / (kCharactersPerLine * kLinesPerEdit);
}

void Raise(const std::function<void()>& event) {
  if (event) event();
}

// Wine lays all lines of a control out anew for another width. That costs as much as filling a new
// control (docs/rich_edit.md), but leaves the heap in pieces, and after a few times it costs
// several times as much.
constexpr int kMostLinesLaidOutAgain = 500;

int LineBreaks(const std::u16string& text) {
  return static_cast<int>(std::ranges::count(text, u'\n'));
}

// Characters that every system's control holds as they are; what becomes of others, only it can
// tell.
bool IsHeldAsItIs(char16_t character) {
  constexpr char16_t kFirstWrittenFromTheRight = 0x0590;
  return character == u'\t' || character == u'\n' || (character >= 0x20 && character < 0x7F) ||
         (character >= 0xA0 && character < kFirstWrittenFromTheRight);
}

LONG WidthOf(const RECT& place) {
  return place.right - place.left;
}

}  // namespace

RichEditBox::RichEditBox(EditBoxSettings& settings, HWND parent, int controlId, int dpi,
                         Events events)
    : settings_(settings),
      parent_(parent),
      controlId_(controlId),
      dpi_(dpi),
      events_(std::move(events)),
      font_(settings.fonts.Make(dpi)) {
  EditDropTarget::Receiver receiver;
  receiver.text = [this](POINT where, const std::u16string& text) { OnDroppedText(where, text); };
  receiver.files = settings.filesDropped;
  dropTarget_ = new EditDropTarget(std::move(receiver));
  SubclassWith(ParentProcedure, parent_, nullptr);
  settings_.boxes.push_back(this);
}

RichEditBox::~RichEditBox() {
  std::erase(settings_.boxes, this);
  rebuilding_ = true;
  dropTarget_->Disconnect();
  if (control_ != nullptr) DestroyWindow(control_);
  dropTarget_->Release();
}

std::u16string RichEditBox::Text() const {
  return control_ != nullptr ? ControlText(control_) : text_.text();
}

int RichEditBox::Length() const {
  return control_ != nullptr ? ControlLength(control_) : text_.Length();
}

void RichEditBox::Load(std::u16string_view text) {
  text_.Reset(BoxText(text));
  selection_ = {};
  if (control_ != nullptr) {
    const ScopeValue<bool> updating(updating_, true);
    // The control would paint its empty self, its scroll bars and the text one after the other.
    const PaintPause pause(control_);
    if (ControlLength(control_) > 0) {
      Rebuild();
    } else {
      Fill();
    }
    SelectInControl(control_, {});
  } else if (!std::ranges::all_of(text_.text(), IsHeldAsItIs)) {
    MakeControl();
  }
  if (control_ == nullptr) return;
  // A character that the system's control cannot hold must not shift the positions behind it.
  std::u16string shown = ControlText(control_);
  if (shown != text_.text()) text_.Reset(std::move(shown));
}

TextSpan RichEditBox::Selection() const {
  return control_ != nullptr ? ControlSelection(control_) : selection_;
}

void RichEditBox::Select(TextSpan span) {
  text_.EndRun();
  selection_ = Clamped(span, Length());
  if (control_ == nullptr) return;
  SelectInControl(control_, selection_);
  SendMessageW(control_, EM_SCROLLCARET, 0, 0);
}

void RichEditBox::ReplaceSelection(std::u16string_view text) {
  MakeControl();
  TakeOverWhatWasMissed();
  const TextSpan selection = Selection();
  std::u16string inserted = BoxText(text);
  const TextSpan caret = {selection.start + static_cast<int>(inserted.size()), 0};
  Change({{selection, std::move(inserted)}}, caret, EditKind::kOther);
}

void RichEditBox::Apply(const std::vector<TextEdit>& edits) {
  MakeControl();
  TakeOverWhatWasMissed();
  const std::vector<TextEdit> reduced = Reduced(text_.text(), edits);
  if (reduced.empty()) return;
  const TextSpan selection = Selection();
  if (control_ != nullptr) {
    const ScopeValue<bool> updating(updating_, true);
    const PaintPause pause(control_);
    ControlView view = ViewOf(control_);
    view.topPosition = Moved(view.topPosition, reduced, Neighbour::kBefore);
    text_.Change(reduced, selection, EditKind::kOther);
    CarryOut(reduced);
    SelectInControl(control_, Moved(selection, reduced));
    ShowView(control_, view);
  } else {
    text_.Change(reduced, selection, EditKind::kOther);
  }
  Raise(events_.changed);
}

void RichEditBox::ApplyStepByStep(const std::vector<TextEdit>& steps) {
  MakeControl();
  TakeOverWhatWasMissed();
  const UndoableText::CarriedOut carriedOut = text_.ChangeStepByStep(steps);
  if (control_ != nullptr && carriedOut.caret) {
    const ScopeValue<bool> updating(updating_, true);
    const PaintPause pause(control_);
    if (IsRebuildingCheaper(carriedOut.edits, text_.Length())) {
      Rebuild();
    } else {
      for (const TextEdit& edit : carriedOut.edits) CarryOutInPlace(edit);
    }
    SelectInControl(control_, {*carriedOut.caret, 0});
    SendMessageW(control_, EM_SCROLLCARET, 0, 0);
  }
  if (!carriedOut.edits.empty()) Raise(events_.changed);
}

void RichEditBox::Undo() {
  TakeOverWhatWasMissed();
  const std::optional<UndoableText::Step> step = text_.Undo(Selection());
  if (step) TakeBack(*step);
}

void RichEditBox::Redo() {
  TakeOverWhatWasMissed();
  const std::optional<UndoableText::Step> step = text_.Redo(Selection());
  if (step) TakeBack(*step);
}

// From the text and not from the control, whose lines are those of the screen: it would begin a new
// one at a vertical tab.
int RichEditBox::LineOf(int position) const {
  return deck::LineOf(text_.text(), position);
}

int RichEditBox::StartOfLine(int line) const {
  return deck::StartOfLine(text_.text(), line);
}

void RichEditBox::Place(const RECT& place) {
  place_ = place;
  if (visible_ || Length() == 0) MoveToPlace();
}

void RichEditBox::SetVisible(bool visible) {
  if (visible) {
    MakeControl();
    MoveToPlace();
  }
  if (std::exchange(visible_, visible) == visible || control_ == nullptr) return;
  if (visible) MakeReachable();
  // The system takes the focus from a window only when it is hidden by the other call.
  if (!visible && GetFocus() == control_) SetFocus(parent_);
  SetPosition({}, SWP_NOMOVE | SWP_NOSIZE | (visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

void RichEditBox::Focus() {
  if (control_ != nullptr) SetFocus(control_);
}

void RichEditBox::SetDpi(int dpi) {
  dpi_ = dpi;
  RefreshFont();
}

void RichEditBox::RefreshFont() {
  FontHandle font = settings_.fonts.Make(dpi_);
  std::swap(font, font_);
  if (control_ != nullptr) Renew(PlaceInParent());
}

void RichEditBox::MakeControl() {
  if (std::exchange(made_, true)) return;
  const ScopeValue<bool> updating(updating_, true);
  Attach(CreateRichEdit(parent_, controlId_, place_.value_or(settings_.place), font_.Get()));
  if (control_ == nullptr || text_.Length() == 0) return;
  Fill();
  SelectInControl(control_, selection_);
}

void RichEditBox::Attach(HWND control) {
  control_ = control;
  if (control == nullptr) return;
  Subclass<&RichEditBox::OnAnyControlMessage>(control, this);
  SetPropW(control, kBoxProperty, this);
  reachable_ = false;
  if (visible_) MakeReachable();
}

// Only in view: a name and a target for drops take the system as long as loading some twenty lines.
void RichEditBox::MakeReachable() {
  if (std::exchange(reachable_, true)) return;
  SetAccessibleName(control_, L"Text");
  // Some systems' control registers a target of its own, which would take formatted text.
  RevokeDragDrop(control_);
  RegisterDragDrop(control_, dropTarget_);
}

// A new control with the present text in the place of the old one. The focus goes straight from one
// to the other, so that the parent has no part in it, and the old one ends before the new one is
// filled, which keeps the memory of both together.
void RichEditBox::Rebuild(const RECT& place) {
  const ScopeValue<bool> rebuilding(rebuilding_, true);
  const HWND old = control_;
  const HWND fresh = CreateRichEdit(parent_, controlId_, place, font_.Get());
  if (fresh != nullptr) {
    Attach(fresh);
    if (GetFocus() == old) SetFocus(fresh);
    DestroyWindow(old);
  }
  Fill();
  if (visible_) SetPosition({}, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
}

// A new control that shows what the old one did, at `place`.
void RichEditBox::Renew(const RECT& place) {
  TakeOverWhatWasMissed();
  const ScopeValue<bool> updating(updating_, true);
  const TextSpan selection = Selection();
  const ControlView view = ViewOf(control_);
  Rebuild(place);
  SelectInControl(control_, selection);
  ShowView(control_, view);
}

void RichEditBox::Fill() {
  PrepareForLines(control_, LineBreaks(text_.text()));
  StreamIntoControl(control_, text_.text());
}

RECT RichEditBox::PlaceInParent() const {
  RECT place{};
  GetWindowRect(control_, &place);
  MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// The system's control lays all its lines out anew when its width changes, even with the same lines
// as a result; a hidden text waits for that until it is shown.
void RichEditBox::MoveToPlace() {
  if (control_ == nullptr || !place_) return;
  const RECT place = *std::exchange(place_, std::nullopt);
  const RECT present = PlaceInParent();
  if (EqualRect(&place, &present)) return;
  if (RunsUnderWine() && WidthOf(place) != WidthOf(present) &&
      LineBreaks(text_.text()) > kMostLinesLaidOutAgain) {
    Renew(place);
    return;
  }
  // The control would paint itself as soon as its lines are laid out, and then once more.
  const PaintPause pause(control_);
  SetPosition(place, 0);
}

// What this uncovers, frames and scroll bars included, is painted with the next messages and not at
// once and one after the other: that took longer than loading a short file. Hiding a box would have
// the frames of all that waits in the parent painted besides.
void RichEditBox::SetPosition(const RECT& place, UINT flags) {
  const RECT before = PlaceInParent();
  SetWindowPos(control_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top,
               flags | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_DEFERERASE);
  const RECT after = PlaceInParent();
  RECT changed{};
  UnionRect(&changed, &before, &after);
  if (visible_ || (flags & SWP_HIDEWINDOW) != 0) {
    RedrawWindow(parent_, &changed, nullptr,
                 RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
}

// Brings the control to the present text, which the edits led to.
void RichEditBox::CarryOut(const std::vector<TextEdit>& edits) {
  if (IsRebuildingCheaper(edits, text_.Length())) {
    Rebuild();
    return;
  }
  // Last to first, so that the spans stay where they are.
  std::for_each(edits.rbegin(), edits.rend(),
                [this](const TextEdit& edit) { CarryOutInPlace(edit); });
  if (ControlLength(control_) != text_.Length()) Rebuild();
}

void RichEditBox::CarryOutInPlace(const TextEdit& edit) {
  SelectInControl(control_, edit.span);
  ReplaceInControl(control_, edit.replacement);
}

// One edit at the caret: the caret stays in view.
void RichEditBox::Change(std::vector<TextEdit> edits, TextSpan selectionAfter, EditKind kind) {
  edits = Reduced(text_.text(), edits);
  const TextSpan selection = Selection();
  if (!edits.empty()) text_.Change(edits, selection, kind);
  if (control_ != nullptr) {
    const ScopeValue<bool> updating(updating_, true);
    if (!edits.empty()) CarryOut(edits);
    SelectInControl(control_, selectionAfter);
    SendMessageW(control_, EM_SCROLLCARET, 0, 0);
  }
  if (!edits.empty()) Raise(events_.changed);
}

void RichEditBox::TakeBack(const UndoableText::Step& step) {
  if (control_ != nullptr) {
    const ScopeValue<bool> updating(updating_, true);
    const PaintPause pause(control_);
    ControlView view = ViewOf(control_);
    view.topPosition = Moved(view.topPosition, step.edits, Neighbour::kBefore);
    CarryOut(step.edits);
    ShowView(control_, view);
    SelectInControl(control_, step.selection);
    SendMessageW(control_, EM_SCROLLCARET, 0, 0);
  }
  Raise(events_.changed);
}

// The control was changed by something else than this object.
void RichEditBox::TakeOver() {
  const std::vector<TextEdit> edits = Difference(text_.text(), ControlText(control_));
  if (edits.empty()) return;
  text_.Change(edits, edits.front().span, EditKind::kOther);
  Raise(events_.changed);
}

// An input method may change the text without a notification while it composes.
void RichEditBox::TakeOverWhatWasMissed() {
  if (control_ != nullptr && ControlLength(control_) != text_.Length()) TakeOver();
}

}  // namespace deck
