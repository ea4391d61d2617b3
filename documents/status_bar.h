// The panels of `StatusBar1`: what they show now, since several commands ask before they write.
// Owned by app/editor.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/main_window_view.h"

namespace deck {

// Panel numbers, from 1.
inline constexpr int kMessagePanel = 1;
inline constexpr int kLinePanel = 2;
inline constexpr int kStatePanel = 3;
inline constexpr int kInsertPanel = 4;
inline constexpr int kCapsPanel = 5;
inline constexpr int kNumPanel = 6;
inline constexpr int kClockPanel = 7;
inline constexpr int kMacroFilePanel = 8;

class StatusBar {
 public:
  explicit StatusBar(MainWindowView& view) : view_(view) {}

  void Set(int panel, std::u16string text);
  const std::u16string& Text(int panel) const;
  void SetToolTip(int panel, const std::u16string& text) { view_.SetPanelToolTip(panel, text); }

  // The message panel.
  void Say(std::u16string text) { Set(kMessagePanel, std::move(text)); }
  const std::u16string& Message() const { return Text(kMessagePanel); }
  // What was said is seen before the next step, however long that takes.
  void PaintNow() { view_.RefreshPanels(); }
  // The result of a compile or download stands until the next command.
  bool ShowsCompileResult() const;
  // A text that the pointer brings up: never over a compile result, and written only once.
  void Hint(std::u16string_view text);
  // "Line no: " and the number, from 1.
  void ShowLine(int line);

 private:
  MainWindowView& view_;
  std::array<std::u16string, kStatusPanels> texts_;
};

}  // namespace deck
