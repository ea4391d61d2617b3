#include "macros/macro_panel.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "documents/file_kinds.h"
#include "documents/layout.h"
#include "macros/detect_macro_file.h"
#include "platform/strings.h"
#include "platform/text_encoding.h"
#include "platform/text_search.h"

namespace deck {
namespace {

constexpr std::u16string_view kHeadingHint = u"Select a macro heading to view the macros under it";
constexpr std::u16string_view kNoMacroFile = u"No macro file analysed";

const Message kUnrecognisedExtension = {
    .text = u"Original file extension unrecognised so I can't detect a macro file",
    .title = u"Unable to detect macro file",
    .style = BoxStyle::kCritical,
};

Message SaveQuestion(const std::u16string& name) {
  return {
      .text = name + u" must be saved first. Do you want to save it now?",
      .title = u"Save " + name + u"?",
      .style = BoxStyle::kYesNoCancel,
  };
}

std::u16string Contents(const MacroList& list) {
  return u"Contains " + Decimal(list.MacroCount()) + u" macros and " +
         Decimal(list.HeadingCount()) + u" macro headings";
}

}  // namespace

MacroPanel::MacroPanel(DocumentSet& documents, StatusBar& status, Settings& settings, Ports ports)
    : documents_(documents), status_(status), settings_(settings), ports_(ports) {}

void MacroPanel::DetectMacroFile(std::u16string_view extension, std::u16string_view folder) {
  EditBox& box = documents_.GetCurrentTextBox();
  const std::optional<MacroFileName> found = FindMacroFileName(box.Text());
  if (!found) return;
  box.Select(found->span);
  const std::optional<std::u16string_view> macroExtension = MacroExtensionFor(extension);
  if (!macroExtension) {
    ports_.prompts.Show(kUnrecognisedExtension);
    return;
  }
  const std::u16string path = PathOf(found->name, *macroExtension, folder);
  if (!FileExists(ports_.files, path)) return;
  const std::u16string message = status_.Message();
  if (links.openBehind(path)) return;
  Analyse(path);
  // That the joystick file was opened is the news, not that its macros were read.
  status_.Say(message);
}

void MacroPanel::RefreshFor(const Document& document) {
  if (IsMacroFile(document.caption)) {
    ShowMacrosOf(document.path);
    return;
  }
  const std::optional<std::u16string_view> macroExtension =
      MacroExtensionFor(ExtensionOf(document.caption));
  if (!macroExtension) return;
  const std::optional<MacroFileName> found = FindMacroFileName(document.text1->Text());
  if (!found) return;
  const std::u16string path = PathOf(found->name, *macroExtension, FolderOf(document.path));
  if (FileExists(ports_.files, path)) Analyse(path);
}

std::u16string MacroPanel::PathOf(std::u16string_view name, std::u16string_view macroExtension,
                                  std::u16string_view folder) const {
  // Paths are compared as text: without one form for each, a file that names itself through ".\"
  // would never be found among the open ones.
  return ports_.files.Absolute(ComposeMacroFilePath(folder, name, macroExtension));
}

void MacroPanel::Analyse(const std::u16string& path) {
  if (!FileExists(ports_.files, path)) {
    Clear();
    return;
  }
  const std::u16string name(FileNameOf(path));
  const std::u16string message = status_.Message();
  status_.Say(u"Opening " + name + u" file for analysis ");
  if (!ReadMacroFile(path)) {
    Clear();
    status_.Say(message);
    return;
  }
  status_.Say(u"Analysing " + name + u" for macros and sub-headings. Please wait ...");
  if (list_.headings.empty()) {
    list_ = ExtractMacrosAndTitles(lines_);
    ports_.view.ShowHeadings(list_.headings, heading_);
    ports_.view.ShowMacros(list_.names.front());
  }
  status_.Say(u"Done");
  status_.Set(kMacroFilePanel, name);
  status_.SetToolTip(kMacroFilePanel, Contents(list_));
}

// Leaves everything as it is when the very same file was analysed last: filling the list takes
// longer than all the rest, and every switch to a joystick file's tab comes here.
bool MacroPanel::ReadMacroFile(const std::u16string& path) {
  Result<std::string> bytes = ports_.files.Read(path);
  if (!bytes) return false;
  if (path == macroFilePath_ && *bytes == analysedBytes_) return true;
  const Result<DecodedText> decoded = DecodeFile(*bytes, ports_.codePage);
  if (!decoded) return false;
  std::u16string newPath = path;  // which may be the very member that is cleared next
  Forget();
  macroFilePath_ = std::move(newPath);
  analysedBytes_ = std::move(*bytes);
  lines_ = GetEachLineFromMacroFile(decoded->text);
  return true;
}

void MacroPanel::ShowMacrosOf(const std::u16string& path) {
  ShowPanel();
  Analyse(path);
}

void MacroPanel::Forget() {
  macroFilePath_.clear();
  analysedBytes_.clear();
  lines_.clear();
  list_ = {};
  heading_ = 0;
  chosenMacro_.clear();
}

void MacroPanel::ClearAllForNewMacroFile() {
  Forget();
  ports_.view.ShowHeadings({}, -1);
  ports_.view.ShowMacros({});
}

void MacroPanel::Clear() {
  ClearAllForNewMacroFile();
  status_.Set(kMacroFilePanel, std::u16string(kNoMacroFile));
  status_.SetToolTip(kMacroFilePanel, u"");
}

void MacroPanel::ViewMacros(bool show) {
  shown_ = show;
  ports_.window.SetCommand(CommandId::kViewMacros, {.checked = shown_, .caption = u"View &macros"});
  ports_.window.PositionControls(FrameWidth());
}

void MacroPanel::ShowPanel() {
  if (!shown_) ViewMacros(true);
}

void MacroPanel::UpdateMacroList() {
  documents_.GetCurrentTextBox();
  const Document& document = documents_.Current();
  if (!IsMacroFile(document.caption)) return;
  bool saved = false;
  if (document.modifiedFlag == 1) {
    const Answer answer = ports_.prompts.Show(SaveQuestion(document.caption));
    if (answer == Answer::kCancel) return;
    saved = answer == Answer::kYes;
    if (saved && !links.save()) return;
  }
  // Who asks for the list gets it anew, also from a file that has not changed. A save has done so.
  if (!saved) ClearAllForNewMacroFile();
  // Asked anew: a read-only file may have been saved elsewhere.
  ShowMacrosOf(documents_.Current().path);
}

void MacroPanel::OnHeadingChosen(int index) {
  if (index < 0 || index > list_.HeadingCount() || list_.headings.empty()) return;
  heading_ = index;
  ports_.view.ShowMacros(list_.names[static_cast<std::size_t>(index)]);
  ShowMacroKeys();
  if (status_.Message() != kHeadingHint) status_.Say(std::u16string(kHeadingHint));
}

void MacroPanel::OnHeadingPointer() {
  if (documents_.CompilerBusy != 1) status_.Hint(kHeadingHint);
}

void MacroPanel::OnMacroClicked(int index) {
  const std::u16string* macro = MacroAt(index);
  if (!macro) return;
  chosenMacro_ = *macro;
  ShowMacroKeys();
  EditBox& box = documents_.GetCurrentTextBox();
  // Clicking the same macro again is still the same choice: what it has selected by itself is not
  // where the user was.
  const bool again = SelectionIsAsLeftByClick() && lastClick_->macro == chosenMacro_;
  const TextSpan before = again ? lastClick_->before : box.Selection();
  FindMacroInJF();
  lastClick_ = Click{documents_.Current().id, chosenMacro_, before, box.Selection()};
}

void MacroPanel::OnListKey() {
  ShowMacroKeys();
}

void MacroPanel::OnListPointer() {
  if (documents_.CompilerBusy == 1) return;
  const std::optional<std::u16string> definition = DefinitionOf(lines_, chosenMacro_);
  if (definition) status_.Hint(*definition);
}

void MacroPanel::OnMacroDoubleClicked(int index) {
  const std::u16string* macro = MacroAt(index);
  if (!macro) return;
  chosenMacro_ = *macro;
  if (SelectionIsAsLeftByClick()) documents_.GetCurrentTextBox().Select(lastClick_->before);
  lastClick_.reset();
  InsertChosenMacro();
}

std::u16string MacroPanel::OnDragStarted(int index) {
  const std::u16string* macro = MacroAt(index);
  if (!macro) return {};
  draggedMacro_ = *macro;
  return u" " + draggedMacro_ + u" ";
}

void MacroPanel::OnSplitterDragged(int width) {
  constexpr int kMaximum = std::numeric_limits<std::int16_t>::max();
  settings_.MacroFrameWidth =
      static_cast<std::int16_t>(std::clamp(width, kNarrowestMacroFrame, kMaximum));
  ports_.profiles.WriteText(settings_.SettingsPath, u"Miscellaneous", u"MacroFrameWidth",
                            Decimal(settings_.MacroFrameWidth));
  ports_.window.PositionControls(FrameWidth());
}

int MacroPanel::FrameWidth() const {
  return shown_ ? std::max<int>(settings_.MacroFrameWidth, kNarrowestMacroFrame) : 0;
}

const std::u16string* MacroPanel::MacroAt(int index) const {
  if (list_.names.empty()) return nullptr;
  const auto& names = list_.names[static_cast<std::size_t>(heading_)];
  const auto position = static_cast<std::size_t>(index);
  return index >= 0 && position < names.size() ? &names[position] : nullptr;
}

void MacroPanel::ShowMacroKeys() {
  std::optional<std::u16string> definition = DefinitionOf(lines_, chosenMacro_);
  if (definition) status_.Say(std::move(*definition));
}

void MacroPanel::FindMacroInJF() {
  if (chosenMacro_.empty()) return;
  EditBox& box = documents_.GetCurrentTextBox();
  const std::u16string text = box.Text();
  const std::u16string use = chosenMacro_ + u" ";
  const int position = FindInText(text, use, 0, static_cast<int>(text.size()), 0);
  if (position >= 0) box.Select({position, static_cast<int>(use.size())});
}

bool MacroPanel::SelectionIsAsLeftByClick() {
  return lastClick_ && lastClick_->document == documents_.Current().id &&
         lastClick_->after == documents_.GetCurrentTextBox().Selection();
}

void MacroPanel::InsertChosenMacro() {
  EditBox& box = documents_.GetCurrentTextBox();
  const int caret = box.Selection().start;
  const bool blankNeeded = caret > 0 && box.Text()[static_cast<std::size_t>(caret - 1)] != u' ';
  box.ReplaceSelection((blankNeeded ? u" " : u"") + chosenMacro_ + u" ");
  box.Focus();
}

}  // namespace deck
