#include "find/find_and_replace.h"

#include <algorithm>
#include <utility>

#include "documents/line_span.h"
#include "find/find_texts.h"
#include "find/line_number.h"
#include "find/replace_all.h"
#include "platform/text_edits.h"
#include "platform/text_search.h"

namespace deck {
namespace {

std::u16string Part(const std::u16string& text, TextSpan span) {
  return text.substr(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length));
}

std::u16string SelectedText(const EditBox& box) {
  const TextSpan span = box.Selection();
  return span.length == 0 ? std::u16string() : Part(box.Text(), span);
}

// Where the character behind the match is. Behind a match that ends its line that is the first one
// of the next line, and not the break between them.
int BehindMatch(std::u16string_view text, TextSpan match) {
  const auto end = static_cast<std::size_t>(match.end());
  const bool endsLine = end < text.size() && text[end] == u'\n' && text[end - 1] != u'\n';
  return endsLine ? match.end() + 1 : match.end();
}

FindControl FieldOf(FindPage page) {
  switch (page) {
    case FindPage::kReplace:
      return FindControl::kComboTextReplaceFind;
    case FindPage::kGotoLine:
      return FindControl::kLineToFind;
    default:
      return FindControl::kComboTextFind;
  }
}

FindControl DefaultButtonOf(FindPage page) {
  switch (page) {
    case FindPage::kReplace:
      return FindControl::kCommand3;
    case FindPage::kGotoLine:
      return FindControl::kCommand7;
    default:
      return FindControl::kCommand1;
  }
}

// The box that stands for the same option on the other page.
FindControl MirrorOf(FindControl option) {
  switch (option) {
    case FindControl::kMatchCaseF:
      return FindControl::kMatchCaseR;
    case FindControl::kMatchCaseR:
      return FindControl::kMatchCaseF;
    case FindControl::kWholeWordF:
      return FindControl::kWholeWordR;
    default:
      return FindControl::kWholeWordF;
  }
}

}  // namespace

struct FindAndReplace::FindControls {
  FindControl combo;
  FindControl button;
  FindControl matchCase;
  FindControl wholeWord;
  Message (*noText)(const std::u16string& file);
};

const FindAndReplace::FindControls& FindAndReplace::ControlsOf(FindPage page) {
  static constexpr FindControls kFind{FindControl::kComboTextFind, FindControl::kCommand1,
                                      FindControl::kMatchCaseF, FindControl::kWholeWordF,
                                      NoTextInFile};
  static constexpr FindControls kReplace{FindControl::kComboTextReplaceFind, FindControl::kCommand3,
                                         FindControl::kMatchCaseR, FindControl::kWholeWordR,
                                         NoTextInJoystickFile};
  return page == FindPage::kReplace ? kReplace : kFind;
}

FindAndReplace::FindAndReplace(DocumentSet& documents, StatusBar& status, FindDialogView& view)
    : documents_(documents), status_(status), view_(view) {
  view_.Connect({
      .clicked = [this](FindControl control) { OnClicked(control); },
      .textChanged = [this](FindControl combo) { OnTextChanged(combo); },
      .pageChosen = [this](FindPage page) { OnPageChosen(page); },
      .findAgain = [this] { FindAgain(); },
      .mouseMoved = [this] { OnMouseMoved(); },
  });
}

// ---- The dialog.

void FindAndReplace::mnuFRGArray(int index) {
  if (index < 0 || index > 2) return;
  const auto page = static_cast<FindPage>(index);
  const std::u16string selected = SelectedText(documents_.GetCurrentTextBox());
  Open(page);
  if (page == FindPage::kFind || (page == FindPage::kReplace && !selected.empty())) {
    PutSearchText(ControlsOf(page), selected);
  }
  view_.Focus(FieldOf(page));
}

void FindAndReplace::Open(FindPage page) {
  const bool isNew = !view_.IsOpen();
  view_.Open(page);
  if (isNew) {
    state_ = {};
    StartAgain();
    SetMatch({});
  }
  if (isNew || page != page_) OnPageChosen(page);
}

void FindAndReplace::OnPageChosen(FindPage page) {
  page_ = page;
  // A search that was begun on one page does not go on on another.
  StartAgain();
  view_.SetDefaultButton(DefaultButtonOf(page));
}

void FindAndReplace::FindAgain() {
  if (!view_.IsOpen() || page_ == FindPage::kGotoLine) {
    mnuFRGArray(0);
    return;
  }
  Find(ControlsOf(page_));
}

void FindAndReplace::Minimise() {
  view_.Minimise();
}

void FindAndReplace::Close() {
  view_.Close();
}

void FindAndReplace::OnClicked(FindControl control) {
  switch (control) {
    case FindControl::kCommand1:
      Find(ControlsOf(FindPage::kFind));
      break;
    case FindControl::kCommand3:
      Find(ControlsOf(FindPage::kReplace));
      break;
    case FindControl::kCommand5:
      Command5();
      break;
    case FindControl::kCommand6:
      Command6();
      break;
    case FindControl::kCommand7:
      Command7();
      break;
    case FindControl::kCommand2:
    case FindControl::kCommand4:
    case FindControl::kCommand8:
    case FindControl::kCommand9:
      Close();
      break;
    case FindControl::kMatchCaseF:
    case FindControl::kMatchCaseR:
    case FindControl::kWholeWordF:
    case FindControl::kWholeWordR:
      view_.SetTicked(MirrorOf(control), view_.IsTicked(control));
      break;
    default:
      break;
  }
}

void FindAndReplace::OnTextChanged(FindControl combo) {
  if (combo == FindControl::kComboTextFind) SetUnderWay(ControlsOf(FindPage::kFind), false);
  if (combo == FindControl::kComboTextReplaceFind) {
    SetUnderWay(ControlsOf(FindPage::kReplace), false);
  }
}

void FindAndReplace::OnMouseMoved() {
  if (status_.Message() != kFindDialogHint) status_.Say(std::u16string(kFindDialogHint));
}

// ---- Find.

void FindAndReplace::Find(const FindControls& controls) {
  if (!TakeSearchText(controls)) return;
  const Document& document = documents_.Current();
  const std::u16string text = documents_.GetCurrentTextBox().Text();
  if (text.empty()) {
    SetMatch({});
    view_.Tell(controls.noText(document.caption));
    return;
  }
  const int length = static_cast<int>(text.size());
  // The user may have gone to a shorter document meanwhile.
  state_.searchStart = IsUnderWay(controls) ? std::min(state_.searchStart, length) : 0;
  state_.foundPosition =
      FindInText(text, state_.searchText, state_.searchStart, length, Options(controls));
  if (state_.foundPosition < 0) {
    NotFound(controls, document);
    return;
  }
  const TextSpan span = {state_.foundPosition, static_cast<int>(state_.searchText.size())};
  Found(controls, {document.id, span, Part(text, span)});
}

void FindAndReplace::Found(const FindControls& controls, const Match& match) {
  EditBox& box = documents_.GetCurrentTextBox();
  state_.searchStart = match.span.end();
  box.Select(match.span);
  SetUnderWay(controls, true);
  SetMatch(controls.button == FindControl::kCommand3 ? match : Match{});
  view_.SetDefaultButton(controls.button);
  ShowSelection(box, BehindMatch(box.Text(), match.span));
}

void FindAndReplace::NotFound(const FindControls& controls, const Document& document) {
  const bool underWay = IsUnderWay(controls);
  const DocumentId id = document.id;
  SetMatch({});
  view_.Tell(underWay ? NoFurtherInstances(state_.searchText, document.caption)
                      : TextNotFound(state_.searchText, document.caption));
  if (underWay) SetUnderWay(controls, false);
  SelectAt(id, state_.searchStart);
  view_.Focus(underWay ? controls.combo : controls.button);
}

// ---- Replace.

void FindAndReplace::Command5() {
  if (MatchIsSelected()) ReplaceText();
  SetMatch({});
  view_.Focus(FindControl::kCommand3);
}

// The user may have gone elsewhere or changed the text since it was found.
bool FindAndReplace::MatchIsSelected() {
  const EditBox& box = documents_.GetCurrentTextBox();
  return documents_.Current().id == state_.match.document && box.Selection() == state_.match.span &&
         SelectedText(box) == state_.match.text;
}

void FindAndReplace::ReplaceText() {
  const std::u16string replacement = Text(FindControl::kComboTextReplaceWith);
  if (!replacement.empty()) Remember(FindControl::kComboTextReplaceWith, replacement);
  documents_.GetCurrentTextBox().ReplaceSelection(replacement);
  // What was found is gone, and with it its length.
  state_.searchStart = state_.match.span.start + static_cast<int>(replacement.size());
}

void FindAndReplace::Command6() {
  const FindControls& controls = ControlsOf(FindPage::kReplace);
  if (!TakeSearchText(controls)) return;
  const Document& document = documents_.Current();
  EditBox& box = documents_.GetCurrentTextBox();
  if (box.Length() == 0) {
    SetMatch({});
    view_.Tell(NoTextInFile(document.caption));
    return;
  }
  const DocumentId id = document.id;
  const Replacements replacements = ReplaceAllMatches(
      box.Text(), state_.searchText, Text(FindControl::kComboTextReplaceWith), Options(controls));
  if (!replacements.edits.empty()) box.Apply(replacements.edits);
  state_.searchStart = replacements.searchStart;
  SetMatch({});
  view_.Tell(ReplacementsMade(replacements.Count(), document.caption));
  SetUnderWay(controls, false);
  SelectAt(id, state_.searchStart);
  view_.Focus(FindControl::kCommand3);
}

// ---- Goto line.

void FindAndReplace::Command7() {
  EditBox& box = documents_.GetCurrentTextBox();
  const int line = LineNumberOf(Text(FindControl::kLineToFind));
  if (line < 1 || line > box.LineOf(box.Length())) {
    view_.Tell(InvalidLineNumber());
    return;
  }
  const std::optional<TextSpan> span = SpanOfLine(box, line);
  if (!span) {
    box.Select({0, 0});  // from where the line was looked for
    view_.Tell(GotoLineNotFound());
    return;
  }
  box.Select(*span);
  ShowSelection(box, span->start);
}

// ---- State.

// The search text of the page, kept in its history; false when there is none.
bool FindAndReplace::TakeSearchText(const FindControls& controls) {
  std::u16string text = Text(controls.combo);
  if (text.empty()) {
    view_.Tell(NothingToSearchFor());
    return false;
  }
  Remember(controls.combo, text);
  // Text that a script has put there comes without a note.
  if (text != state_.searchText) SetUnderWay(controls, false);
  state_.searchText = std::move(text);
  return true;
}

std::u16string FindAndReplace::Text(FindControl field) const {
  return BoxText(view_.Text(field));
}

// The control gives no note of it either.
void FindAndReplace::PutSearchText(const FindControls& controls, const std::u16string& text) {
  view_.SetText(controls.combo, text);
  SetUnderWay(controls, false);
}

void FindAndReplace::Remember(FindControl combo, const std::u16string& text) {
  std::vector<std::u16string>& history = state_.histories[combo];
  if (std::ranges::find(history, text) != history.end()) return;
  history.push_back(text);
  view_.AddToList(combo, text);
}

int FindAndReplace::Options(const FindControls& controls) const {
  return (view_.IsTicked(controls.matchCase) ? kFindMatchCase : 0) |
         (view_.IsTicked(controls.wholeWord) ? kFindWholeWord : 0);
}

// The caption is the only record of it.
bool FindAndReplace::IsUnderWay(const FindControls& controls) const {
  return view_.Text(controls.button) == kFindNext;
}

void FindAndReplace::SetUnderWay(const FindControls& controls, bool underWay) {
  view_.SetText(controls.button, std::u16string(underWay ? kFindNext : kFindFirst));
}

void FindAndReplace::StartAgain() {
  SetUnderWay(ControlsOf(FindPage::kFind), false);
  SetUnderWay(ControlsOf(FindPage::kReplace), false);
}

// Replacing is possible while a match of the Replace page stands.
void FindAndReplace::SetMatch(Match match) {
  state_.match = std::move(match);
  const bool stands = state_.match.document != 0;
  view_.SetEnabled(FindControl::kCommand5, stands);
  view_.SetEnabled(FindControl::kCommand6, stands);
}

// The document may have been closed while a message was shown.
void FindAndReplace::SelectAt(DocumentId document, int position) {
  const int index = documents_.IndexOf(document);
  if (index >= 0) documents_[index].text1->Select({position, 0});
}

// The line number shown is that of the position, which need not be the selection's own.
void FindAndReplace::ShowSelection(EditBox& box, int position) {
  status_.ShowLine(box.LineOf(position));
  box.Focus();
  view_.KeepClearOfSelection();
}

}  // namespace deck
