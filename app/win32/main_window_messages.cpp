// What the system tells the main window, turned into one call each.
#include "app/win32/main_window.h"

#include <shellapi.h>

#include <array>
#include <cwctype>
#include <string>
#include <utility>

#include "platform/scope_value.h"
#include "platform/twips.h"
#include "platform/win32/dpi.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/procedure_border.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/window_front.h"
#include "platform/win32/window_place.h"

namespace deck {
namespace {

constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, which Windows 7 does not send

// Pixels at 96 dpi, the frame included.
constexpr int kLeastWidth = 480;
constexpr int kLeastHeight = 320;

// Alt and this letter: the mnemonic of the label over the macros.
constexpr wchar_t kMacrosMnemonic = L'm';

std::vector<std::u16string> TakePaths(HDROP drop) {
  std::vector<std::u16string> paths;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT file = 0; file < count; ++file) {
    std::wstring path(DragQueryFileW(drop, file, nullptr, 0) + 1, L'\0');
    path.resize(DragQueryFileW(drop, file, path.data(), static_cast<UINT>(path.size())));
    paths.push_back(FromWide(path));
  }
  DragFinish(drop);
  return paths;
}

std::u16string Clock() {
  std::array<wchar_t, 80> text{};
  const int length = GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, nullptr, nullptr,
                                     text.data(), static_cast<int>(text.size()));
  return length > 0 ? FromWide({text.data(), static_cast<std::size_t>(length - 1)})
                    : std::u16string();
}

bool IsPanelKey(WPARAM key) {
  return key == VK_INSERT || key == VK_CAPITAL || key == VK_NUMLOCK;
}

}  // namespace

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    ScaleFrameWithDpi(window);
    auto* self = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  return InProcedure([&] {
    const ScopeValue depth(self->depth_, self->depth_ + 1);
    const std::optional<LRESULT> answer = self->Handle(message, wParam, lParam);
    return answer ? *answer : DefWindowProcW(window, message, wParam, lParam);
  });
}

std::optional<LRESULT> MainWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      OnCreate();
      return 0;
    case WM_SIZE:
      OnSize(wParam);
      return 0;
    case WM_GETMINMAXINFO:
      OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
      return 0;
    case kDpiChanged:
      OnDpiChanged(HIWORD(wParam), *reinterpret_cast<RECT*>(lParam));
      return 0;
    case WM_SETTINGCHANGE:
      OnSettingChange(wParam);
      return std::nullopt;
    case WM_COMMAND:
      OnCommand(wParam, lParam);
      return 0;
    case WM_NOTIFY:
      if (OnNotify(*reinterpret_cast<NMHDR*>(lParam))) return 0;
      return std::nullopt;
    case WM_INITMENUPOPUP:
      Report(events.menuOpening, menu_.MenuOf(reinterpret_cast<HMENU>(wParam)));
      return 0;
    case WM_MENUCHAR:
      return OnMenuChar(wParam);
    case kFocusMacros:
      macroPanel_->Focus();
      return 0;
    case WM_COPYDATA:
      return OnCopyData(*reinterpret_cast<COPYDATASTRUCT*>(lParam));
    case WM_DROPFILES:
      OnFilesDropped(TakePaths(reinterpret_cast<HDROP>(wParam)));
      return 0;
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_SETCURSOR:
      return OnSetCursor(lParam);
    case WM_ACTIVATEAPP:
      if (!closed_) Report(events.lookedAt, wParam != FALSE);
      return std::nullopt;
    case WM_SETFOCUS:
      Report(events.focused);
      return 0;
    case WM_CLOSE:
      OnClose();
      return 0;
    case WM_QUERYENDSESSION:
      return OnQueryEndSession();
    case WM_ENDSESSION:
      if (wParam != 0) {
        End();
      } else {
        Report(events.stayOpen);
      }
      return 0;
    default:
      if (taskbarButton_) taskbarButton_->OnMessage(message);
      return std::nullopt;
  }
}

bool MainWindow::IsUsable() const {
  return !closed_ && IsWindowEnabled(window_);
}

void MainWindow::OnSize(WPARAM kind) {
  const bool minimised = kind == SIZE_MINIMIZED;
  if (std::exchange(minimised_, minimised) != minimised) Report(events.minimised, minimised);
  Arrange();
}

void MainWindow::OnMinMaxInfo(MINMAXINFO& info) const {
  info.ptMinTrackSize = {ScaleToDpi(kLeastWidth, dpi_), ScaleToDpi(kLeastHeight, dpi_)};
}

void MainWindow::OnSettingChange(WPARAM setting) {
  if (setting != SPI_SETNONCLIENTMETRICS) return;
  SetFonts();
  Arrange();
}

void MainWindow::OnDpiChanged(int dpi, const RECT& suggested) {
  dpi_ = dpi;
  SetFonts();
  for (RichEditBox* box : editBoxes_.boxes) box->SetDpi(dpi_);
  if (!placing_) MoveTo(window_, FromRect(suggested));
  Arrange();
}

void MainWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
  // Notices of controls come with their window; commands of menu and shortcuts do not, and those of
  // the toolbar's buttons are the same commands.
  const auto sender = reinterpret_cast<HWND>(lParam);
  const bool isCommand = sender == nullptr || (toolbar_ && sender == toolbar_->Handle());
  if (isCommand && IsUsable()) {
    Report(events.execute, static_cast<CommandId>(LOWORD(wParam)));
  }
}

bool MainWindow::OnNotify(NMHDR& header) {
  // The controls report while they are made, too.
  return (tabs_ && tabs_->OnNotify(header)) || (toolbar_ && toolbar_->OnNotify(header));
}

// Controls ask here before they show a pointer of their own.
std::optional<LRESULT> MainWindow::OnSetCursor(LPARAM place) const {
  if (LOWORD(place) != HTCLIENT || !ShowWorkPointer()) return std::nullopt;
  return TRUE;
}

bool MainWindow::ShowWorkPointer() const {
  if (work_ != WorkState::kWorking) return false;
  SetCursor(LoadCursorW(nullptr, IDC_APPSTARTING));
  return true;
}

std::optional<LRESULT> MainWindow::OnMenuChar(WPARAM wParam) {
  const bool isMnemonic = towlower(static_cast<wint_t>(LOWORD(wParam))) == kMacrosMnemonic;
  if (!isMnemonic || (HIWORD(wParam) & MF_POPUP) != 0 || layout_.macroFrame.width == 0) {
    return std::nullopt;
  }
  // The menu gives the focus back as it closes; only then can the panel have it.
  PostMessageW(window_, kFocusMacros, 0, 0);
  return MAKELRESULT(0, MNC_CLOSE);
}

void MainWindow::OnFilesDropped(const std::vector<std::u16string>& paths) {
  if (!IsUsable()) return;
  SetForegroundWindow(window_);
  Report(events.filesDropped, paths);
}

// From any program. What is to be opened is opened here, while nothing else can come between; the
// sender is let go first, for the user may be asked a question.
LRESULT MainWindow::OnCopyData(const COPYDATASTRUCT& data) {
  // One that has been closed no longer tells anybody; the start waits for its end.
  if (!events.isWaiting && !closed_) return static_cast<LRESULT>(HandOverReply::kRefused);
  const auto* bytes = static_cast<const char*>(data.lpData);
  const HandOverAnswer answer =
      AnswerHandOver(data.dwData, {bytes, bytes != nullptr ? data.cbData : 0}, State());
  const auto reply = static_cast<LRESULT>(answer.reply);
  ReplyMessage(reply);
  if (answer.comeToFront) ComeToFront();
  if (!answer.fileToOpen.empty()) Report(events.fileHandedOver, answer.fileToOpen);
  return reply;
}

EditorState MainWindow::State() const {
  if (closed_) return EditorState::kClosed;
  const bool idle = IsUsable() && depth_ == 1 && events.isWaiting();
  return idle ? EditorState::kIdle : EditorState::kBusy;
}

void MainWindow::ComeToFront() {
  if (IsIconic(window_)) ShowWindow(window_, SW_RESTORE);
  ShowInFront(GetLastActivePopup(window_));
}

void MainWindow::OnTimer(WPARAM timer) {
  if (timer == kHousekeepingTimer) {
    NoteRestingPointer();
    ReportKeysAndClock();
  } else {
    Report(events.timer, static_cast<TimerId>(timer));
  }
}

void MainWindow::ReportKeysAndClock() const {
  Report(events.keysAndClock, editBoxes_.insertMode, Clock());
}

bool MainWindow::Watch(const MSG& message) {
  if (message.message == WM_KEYDOWN && IsPanelKey(message.wParam)) ReportKeysAndClock();
  return false;
}

void MainWindow::OnClose() {
  if (IsUsable() && MayClose()) End();
}

// While a question is open, the answer to it is not known: the session waits for the user.
bool MainWindow::OnQueryEndSession() {
  return closed_ || (IsUsable() && MayClose());
}

bool MainWindow::MayClose() const {
  return !events.queryUnload || events.queryUnload();
}

// The window itself ends with this object: a command that is still waiting further up may use it
// until then.
void MainWindow::End() {
  if (std::exchange(closed_, true)) return;
  Report(events.unload);
  ShowWindow(window_, SW_HIDE);
  PostQuitMessage(0);
}

}  // namespace deck
