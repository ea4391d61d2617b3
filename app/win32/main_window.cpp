#include "app/win32/main_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <utility>

#include "app/win32/resource_ids.h"
#include "platform/control_ids.h"
#include "platform/scope_value.h"
#include "platform/twips.h"
#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/program_icon.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/window_class.h"
#include "platform/win32/window_place.h"

namespace deck {
namespace {

static_assert(IDI_WRENDECK == kProgramIcon);

constexpr const wchar_t* kClassName = L"Editor";
constexpr const wchar_t* kTitle = L"Wren Deck";

// Pixels at 96 dpi, until a place is restored.
constexpr int kFirstWidth = 888;
constexpr int kFirstHeight = 593;

HDWP Move(HDWP moves, HWND window, const Rectangle& where, UINT flags = 0) {
  return DeferWindowPos(moves, window, nullptr, where.left, where.top, where.width, where.height,
                        SWP_NOZORDER | SWP_NOACTIVATE | flags);
}

// Lets what is under the pointer choose it anew, as if it had moved.
void ChoosePointer(HWND window) {
  POINT where{};
  if (!GetCursorPos(&where)) return;
  const HWND under = WindowFromPoint(where);
  if (under != window && !IsChild(window, under)) return;
  const LRESULT part = SendMessageW(under, WM_NCHITTEST, 0, MAKELPARAM(where.x, where.y));
  SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
               MAKELPARAM(part, WM_MOUSEMOVE));
}

}  // namespace

MainWindow::MainWindow() : shortcuts_(MakeAccelerators()) {
  RegisterWindowClass({.name = kClassName, .procedure = Procedure, .background = WindowGround()});
  CreateWindowExW(WS_EX_ACCEPTFILES, kClassName, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr,
                  menu_.Handle(), GetModuleHandleW(nullptr), this);
}

MainWindow::~MainWindow() {
  // While the parts still live that the window's procedure reports to.
  DestroyWindow(window_);
}

void MainWindow::OnCreate() {
  dpi_ = DpiOf(window_);
  CreateParts();
  SetFonts();
  SetWindowPos(window_, nullptr, 0, 0, ScaleToDpi(kFirstWidth, dpi_),
               ScaleToDpi(kFirstHeight, dpi_), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  SetTimer(window_, kHousekeepingTimer, kHousekeepingInterval, nullptr);
}

void MainWindow::CreateParts() {
  taskbarButton_.emplace(window_);
  TabStrip::Events tabEvents;
  tabEvents.clicked = [this](int position) { Report(events.tabClicked, position); };
  tabEvents.middleClicked = [this](int position) { Report(events.tabMiddleClicked, position); };
  tabEvents.hovered = [this](int position) { Report(events.tabHovered, position); };
  toolbar_.emplace(window_, [this](CommandId command) { Report(events.toolbarHovered, command); });
  tabs_.emplace(window_, std::move(tabEvents));
  macroPanel_.emplace(window_);
  macroPanel_->events.splitterMoved = [this](int width) { PositionControls(width); };
  macroPanel_->events.left = [this] { Report(events.focused); };
  status_.emplace(window_, [this] { Report(events.statusBarHovered); });
  editBoxes_.insertModeChanged = [this] { ReportKeysAndClock(); };
  editBoxes_.showOtherPointer = [this] { return ShowWorkPointer(); };
  editBoxes_.filesDropped = [this](const std::vector<std::u16string>& paths) {
    OnFilesDropped(paths);
  };
}

void MainWindow::SetFonts() {
  FontHandle tabFont = MakeFont(MessageFont(dpi_));
  FontHandle statusFont = MakeFont(StatusFont(dpi_));
  toolbar_->SetDpi(dpi_);
  tabs_->SetFont(tabFont.Get(), dpi_);
  status_->SetFont(statusFont.Get(), dpi_);
  macroPanel_->SetFont(MessageFont(dpi_), dpi_);
  // Only now are the old ones out of use.
  tabFont_ = std::move(tabFont);
  statusFont_ = std::move(statusFont);
  icons_.Set(window_, dpi_);
}

void MainWindow::Show() {
  NotePointer();
  ShowWindow(window_, stateToShow_ == WindowState::kMaximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
  ReportKeysAndClock();
}

// ---- MainWindowView.

std::unique_ptr<EditBox> MainWindow::CreateEditBox(EditBox::Events boxEvents) {
  return std::make_unique<RichEditBox>(editBoxes_, window_, static_cast<int>(ControlId::kText1),
                                       dpi_, std::move(boxEvents));
}

void MainWindow::InsertTab(int position, const std::u16string& caption) {
  tabs_->Insert(position, caption);
}

void MainWindow::RemoveTab(int position) {
  tabs_->Remove(position);
}

void MainWindow::SetTab(int position, const std::u16string& caption,
                        const std::u16string& toolTip) {
  tabs_->Set(position, caption, toolTip);
}

void MainWindow::SelectTab(int position) {
  tabs_->Select(position);
}

void MainWindow::SetPanel(int panel, const std::u16string& text) {
  status_->SetPanel(panel, text);
}

void MainWindow::SetPanelToolTip(int panel, const std::u16string& text) {
  status_->SetPanelToolTip(panel, text);
}

void MainWindow::SetCommand(CommandId command, const CommandState& state) {
  menu_.SetCommand(command, state);
  if (!state.menuItemOnly) toolbar_->SetCommand(command, state);
}

void MainWindow::ShowToolTips(bool show) {
  toolbar_->ShowToolTips(show);
}

void MainWindow::SetRecentFiles(const std::vector<std::u16string>& paths) {
  menu_.SetRecentFiles(paths);
}

void MainWindow::PositionControls(int macroFrameWidth) {
  macroFrameWidth_ = macroFrameWidth;
  Arrange();
}

void MainWindow::ShowWork(WorkState state) {
  if (std::exchange(work_, state) == state) return;
  taskbarButton_->Show(state);
  ChoosePointer(window_);
}

void MainWindow::Refresh() {
  RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void MainWindow::RefreshPanels() {
  UpdateWindow(status_->Handle());
}

WindowPlacement MainWindow::Placement() const {
  const Rectangle place = NormalPlaceOf(window_);
  WindowPlacement placement{
      .left = TwipsFromPixels(place.left, dpi_),
      .top = TwipsFromPixels(place.top, dpi_),
      .width = TwipsFromPixels(place.width, dpi_),
      .height = TwipsFromPixels(place.height, dpi_),
      .state = stateToShow_,
  };
  if (!IsWindowVisible(window_)) return placement;
  placement.state = IsIconic(window_)   ? WindowState::kMinimised
                    : IsZoomed(window_) ? WindowState::kMaximised
                                        : WindowState::kNormal;
  return placement;
}

void MainWindow::Place(const WindowPlacement& placement) {
  stateToShow_ = placement.state;
  if (placement.state == WindowState::kNormal) {
    const Rectangle place = PlaceOnAMonitor(placement, dpi_);
    const ScopeValue placing(placing_, true);
    MoveTo(window_, place);
  }
  if (IsWindowVisible(window_)) Show();
}

std::pair<float, float> MainWindow::ScreenSize() const {
  const Rectangle monitor = MonitorAt(window_);
  return {TwipsFromPixels(monitor.width, dpi_), TwipsFromPixels(monitor.height, dpi_)};
}

void MainWindow::Close() {
  PostMessageW(window_, WM_CLOSE, 0, 0);
}

// ---- Layout.

void MainWindow::Arrange() {
  // A minimised window has no room; what was laid out before comes back with it.
  if (IsIconic(window_)) return;
  status_->Arrange();
  RECT client{};
  GetClientRect(window_, &client);
  layout_ = deck::PositionControls({.clientWidth = client.right,
                                    .clientHeight = client.bottom,
                                    .toolbarHeight = toolbar_->Height(),
                                    .statusBarHeight = status_->Height(),
                                    .macroFrameWidth = macroFrameWidth_,
                                    .dpi = dpi_});
  HDWP moves = BeginDeferWindowPos(3);
  moves = Move(moves, toolbar_->Handle(), {0, 0, client.right, toolbar_->Height()});
  const bool macrosWereSeen = IsWindowVisible(macroPanel_->Handle()) != FALSE;
  moves = ArrangeMacroPanel(moves);
  moves = Move(moves, tabs_->Handle(), layout_.tabStrip);
  EndDeferWindowPos(moves);
  editBoxes_.place = ToRect(layout_.editBox);
  for (RichEditBox* box : editBoxes_.boxes) box->Place(editBoxes_.place);
  if (!macrosWereSeen) {
    RedrawWindow(macroPanel_->Handle(), nullptr, nullptr,
                 RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
}

// A panel that goes keeps its size, and one that comes takes it before it is seen: its lists change
// their scroll bars with their size, and in view they would paint them each time. It is painted
// with the next messages.
HDWP MainWindow::ArrangeMacroPanel(HDWP moves) const {
  const HWND panel = macroPanel_->Handle();
  const Rectangle& place = layout_.macroFrame;
  if (place.width == 0) return Move(moves, panel, {}, SWP_NOMOVE | SWP_NOSIZE | SWP_HIDEWINDOW);
  if (IsWindowVisible(panel)) return Move(moves, panel, place);
  MoveWindow(panel, place.left, place.top, place.width, place.height, FALSE);
  return Move(moves, panel, place, SWP_SHOWWINDOW | SWP_NOREDRAW);
}

}  // namespace deck
