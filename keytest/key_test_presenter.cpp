#include "keytest/key_test_presenter.h"

#include <cmath>
#include <optional>
#include <utility>

#include "keytest/key_code_file.h"
#include "keytest/mode_warning.h"
#include "keytest/save_key_log.h"
#include "platform/scope_value.h"
#include "platform/text_edits.h"

namespace deck {
namespace {

int Rounded(float twips) {
  return static_cast<int>(std::lround(twips));
}

}  // namespace

KeyTestPresenter::KeyTestPresenter(KeyTestView& view, const Settings& settings, Ports ports)
    : view_(view), settings_(settings), ports_(ports) {
  JoinView();
}

KeyTestPresenter::~KeyTestPresenter() {
  view_.events = {};
}

void KeyTestPresenter::JoinView() {
  const auto stroke = [this](std::int16_t code, std::int16_t modifiers) {
    return KeyStroke{code, modifiers, ports_.keyboard.IsOn(ToggleKey::kNumLock)};
  };
  KeyTestView::Events& events = view_.events;
  events.keyDown = [this, stroke](std::int16_t code, std::int16_t modifiers) {
    return CarryOut(OnKeyDown(state_, table_, stroke(code, modifiers)));
  };
  events.keyUp = [this, stroke](std::int16_t code, std::int16_t modifiers) {
    return CarryOut(OnKeyUp(state_, table_, stroke(code, modifiers)));
  };
  events.keyPress = [this](char16_t character) { return CarryOut(OnKeyPress(state_, character)); };
  events.keysUnseen = [this](std::int16_t modifiers) {
    OnKeysUnseen(state_, modifiers, ports_.keyboard.IsOn(ToggleKey::kNumLock));
    view_.SetLamps(state_.lamps);
  };
  events.timer1 = [this] { CarryOut(OnTimer1(state_)); };
  events.command = [this](KeyTestCommand command, KeyBox box) { Execute(command, box); };
  events.menusLabelClicked = [this] { ToggleMenus(); };
  events.modeWarningClicked = [this] {
    Ask([this] { ports_.prompts.Show(ModeWarning(report_.status)); });
  };
  events.boxEntered = [this] { ForeignKeyBSupport(); };
  events.closing = [this] { Unload(); };
}

// ---- Opening and closing.

void KeyTestPresenter::Show() {
  if (phase_ == Phase::kLoading) return;
  if (phase_ == Phase::kClosed && !Load()) return;
  phase_ = Phase::kOpen;
  view_.Show();
}

bool KeyTestPresenter::Load() {
  const int load = ++loads_;
  const auto isClosed = [this, load] { return loads_ != load || phase_ == Phase::kClosed; };
  phase_ = Phase::kLoading;
  settingsAreRead_ = false;
  state_ = {};
  view_.Open();
  savedLayout_ = ports_.keyboard.LayoutName();
  state_.lamps.numLock = ports_.keyboard.IsOn(ToggleKey::kNumLock);
  view_.SetLamps(state_.lamps);
  if (ports_.keyboard.IsOn(ToggleKey::kCapsLock)) TurnOffCapsLOCK();
  if (isClosed()) return false;
  ApplySettings();

  std::optional<KeyCodeTable> table = GetMappedCharacters(
      settings_.applicationFolder, {ports_.files, ports_.prompts, ports_.events, ports_.codePage});
  if (isClosed()) return false;
  if (!table) {
    Unload();
    return false;
  }
  table_ = *std::move(table);

  report_ = links.readControllerMode();
  if (!IsProgrammed()) {
    links.switchButtonsMode(true);
    if (isClosed()) return false;
    // The switch is not waited for: only a quick one shows in the second reading.
    ports_.events.PumpEvents();
    if (isClosed()) return false;
    report_ = links.readControllerMode();
  }
  look_.modeWarning = report_.status == u"ERROR" || !IsProgrammed();
  ShowLook();
  return true;
}

void KeyTestPresenter::ApplySettings() {
  const KeyTestSettings stored = GetKeyPosition(ports_.profiles, settings_.HostPath);
  settingsAreRead_ = true;
  view_.Place({.left = static_cast<float>(stored.left),
               .top = static_cast<float>(stored.top),
               .width = static_cast<float>(stored.width),
               .height = static_cast<float>(stored.height)});
  look_ = {.viewAll = stored.keyViewAll != 0, .menusShown = stored.menuDisplay != 0};
  if (stored.clearDelay != kClearDelayOff) ChooseClearDelay(stored.clearDelay);
  ShowLook();
}

void KeyTestPresenter::Unload() {
  if (phase_ == Phase::kClosed) return;
  phase_ = Phase::kClosed;
  // Closed before they were read, the settings are still those of the last time.
  if (settingsAreRead_) SaveSettings();
  table_ = {};
  view_.Close();
}

void KeyTestPresenter::SaveSettings() {
  const WindowPlacement placement = view_.Placement();
  const KeyTestSettings settings{
      .top = Rounded(placement.top),
      .left = Rounded(placement.left),
      .width = Rounded(placement.width),
      .height = Rounded(placement.height),
      .clearDelay = state_.clearDelay,
      .keyViewAll = look_.viewAll ? -1 : 0,
      .menuDisplay = look_.menusShown ? 1 : 0,
  };
  // Where they cannot be written they do not persist.
  static_cast<void>(SaveKeyFormPosition(ports_.profiles, settings_.HostPath, settings));
}

// ---- Keys.

bool KeyTestPresenter::CarryOut(const KeyReaction& reaction) {
  view_.SetLamps(state_.lamps);
  if (reaction.clearBoxes) ClearTextBoxes();
  if (reaction.timer == Timer1Action::kStop) view_.SetTimer1(0);
  if (reaction.timer == Timer1Action::kStart) StartTimer1();
  if (reaction.event) Append(KeyBox::kEvents, *reaction.event);
  if (reaction.name) Append(KeyBox::kNames, *reaction.name);
  if (reaction.turnOffCapsLock) TurnOffCapsLOCK();
  return reaction.swallow;
}

void KeyTestPresenter::StartTimer1() {
  view_.SetTimer1(kClearDelayMilliseconds[state_.clearDelay]);
}

void KeyTestPresenter::Append(KeyBox box, const std::u16string& line) {
  view_.Append(box, line);
  ForeignKeyBSupport();
}

void KeyTestPresenter::ClearTextBoxes() {
  ClearTextBox(KeyBox::kEvents);
  ClearTextBox(KeyBox::kNames);
}

void KeyTestPresenter::ClearTextBox(KeyBox box) {
  view_.Clear(box);
  ForeignKeyBSupport();
}

void KeyTestPresenter::TurnOffCapsLOCK() {
  ports_.keyboard.TurnOffCapsLock();
  // A burst of this very key must not pile up on the stack.
  if (runningEvents_) return;
  const ScopeValue running(runningEvents_, true);
  ports_.events.PumpEvents();
}

void KeyTestPresenter::ForeignKeyBSupport() {
  if (settings_.ForeignKeyboardFix == 0) return;
  if (ports_.keyboard.LayoutName() == savedLayout_) return;
  // Where the system refuses, the names are those of the layout that is active.
  static_cast<void>(ports_.keyboard.ActivateLayout(savedLayout_));
}

// Boxes and dialogs stand in front of the main window, which has the keyboard behind them: the keys
// of the controllers would go into the text.
void KeyTestPresenter::Ask(const std::function<void()>& ask) {
  if (asking_) return;
  {
    const ScopeValue asking(asking_, true);
    ask();
  }
  if (phase_ == Phase::kOpen) view_.Show();
}

// ---- Menus.

void KeyTestPresenter::Execute(KeyTestCommand command, KeyBox box) {
  switch (command) {
    case KeyTestCommand::kClearAll:
      ClearTextBoxes();
      break;
    case KeyTestCommand::kStickOff:
      links.switchButtonsMode(false);
      break;
    case KeyTestCommand::kClose:
      Unload();
      break;
    case KeyTestCommand::kViewAll:
      look_.viewAll = !look_.viewAll;
      ShowLook();
      break;
    case KeyTestCommand::kCopy:
      Copy(view_.SelectedText(box));
      break;
    case KeyTestCommand::kCopyAll:
      Copy(view_.Text(box));
      break;
    case KeyTestCommand::kSaveAsText:
      Ask([this, text = view_.Text(box)] {
        SaveKeyLog(text, settings_.FilesFolder,
                   {ports_.files, ports_.dialogs, ports_.prompts, ports_.codePage});
      });
      break;
    case KeyTestCommand::kClearBox:
      ClearTextBox(box);
      break;
    default:
      if (const int index = ClearDelayIndex(command); index >= 0) {
        ChooseClearDelay(index);
        ShowLook();
      }
      break;
  }
}

void KeyTestPresenter::ChooseClearDelay(int index) {
  state_.clearDelay = index;
  StartTimer1();
}

void KeyTestPresenter::ToggleMenus() {
  look_.menusShown = !look_.menusShown;
  ShowLook();
}

void KeyTestPresenter::ShowLook() {
  look_.heading = look_.viewAll ? u"Up/Down/Keycode events" : u"Events";
  look_.clearDelay = state_.clearDelay;
  view_.SetLook(look_);
}

void KeyTestPresenter::Copy(const std::u16string& text) {
  if (text.empty()) return;
  // Another program may hold the clipboard; a second try is one click away.
  static_cast<void>(ports_.clipboard.SetText(BoxText(text)));
}

}  // namespace deck
