// The key tester: shows what the controllers send as keystrokes, and how programming files call the
// keys. Opens the window, asks for the controllers' programmed mode, runs every key through the
// machine of keytest/key_tester.h and remembers the window's settings. Owned by app/editor.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "keytest/key_code_table.h"
#include "keytest/key_test_settings.h"
#include "keytest/key_test_view.h"
#include "keytest/key_tester.h"
#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/file_dialogs.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "platform/profile_files.h"
#include "platform/prompts.h"
#include "platform/settings.h"

namespace deck {

// What the controllers last reported about their mode.
struct ControllerReport {
  std::u16string status;     // "ERROR" when the mode could not be read or switched
  std::int16_t buttons = 0;  // non-zero: the buttons are in programmed mode
};

// How the key tester reaches the controllers; set by app/editor.
struct KeyTestLinks {
  std::function<ControllerReport()> readControllerMode;
  // True asks for programmed mode, false gives the buttons back to Windows. Does not wait.
  std::function<void(bool programmed)> switchButtonsMode;
};

class KeyTestPresenter {
 public:
  struct Ports {
    Files& files;
    ProfileFiles& profiles;
    FileDialogs& dialogs;
    Prompts& prompts;
    EventLoop& events;
    Keyboard& keyboard;
    Clipboard& clipboard;
    const CodePage& codePage;
  };

  // All have to outlive this object.
  KeyTestPresenter(KeyTestView& view, const Settings& settings, Ports ports);
  ~KeyTestPresenter();
  KeyTestPresenter(const KeyTestPresenter&) = delete;
  KeyTestPresenter& operator=(const KeyTestPresenter&) = delete;

  KeyTestLinks links;

  // Opens the window, or brings it to the front.
  void Show();
  // Closes the window and keeps its settings; does nothing while it is closed.
  void Unload();
  bool IsOpen() const { return phase_ != Phase::kClosed; }

 private:
  enum class Phase { kClosed, kLoading, kOpen };

  void JoinView();
  // False when the window is closed again: for want of a table, or because loading runs other
  // events and one of them closed it.
  bool Load();
  void ApplySettings();
  bool IsProgrammed() const { return report_.buttons != 0; }
  void SaveSettings();

  // True when the system must not see the event.
  bool CarryOut(const KeyReaction& reaction);
  void StartTimer1();
  void Append(KeyBox box, const std::u16string& line);
  void ClearTextBoxes();
  void ClearTextBox(KeyBox box);
  void TurnOffCapsLOCK();
  void ForeignKeyBSupport();
  // Shows one box or dialog at a time, and gives the keyboard back to the window behind it.
  void Ask(const std::function<void()>& ask);

  void Execute(KeyTestCommand command, KeyBox box);
  void ChooseClearDelay(int index);
  void ToggleMenus();
  void ShowLook();
  void Copy(const std::u16string& text);

  KeyTestView& view_;
  const Settings& settings_;
  Ports ports_;

  Phase phase_ = Phase::kClosed;
  int loads_ = 0;  // number of the newest load
  bool settingsAreRead_ = false;
  bool runningEvents_ = false;  // for CAPS LOCK
  bool asking_ = false;
  KeyTesterState state_;
  KeyCodeTable table_;
  KeyTestLook look_;
  ControllerReport report_;
  std::u16string savedLayout_;
};

}  // namespace deck
