#include "tests/bench/bench_session.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "documents/win32/edit_font.h"
#include "documents/win32/rich_edit_control.h"
#include "platform/control_ids.h"
#include "platform/strings.h"
#include "tests/bench/bench_texts.h"
#include "tests/bench/costs.h"

namespace deck {
namespace {

constexpr int kDpi = 96;
constexpr wchar_t kWindowClass[] = L"WrenDeckBench";

void Require(bool done, const char* what) {
  if (done) return;
  std::printf("Nothing was measured: %s\n", what);
  std::exit(2);
}

void WriteTextFile(const std::u16string& path, const std::u16string& text) {
  std::string bytes;
  for (const char16_t character : text) {
    if (character == u'\n') bytes += '\r';
    bytes += static_cast<char>(character);
  }
  Require(static_cast<bool>(Win32Files().Create(path, bytes)), "a file could not be written");
}

}  // namespace

ApplicationFolder::ApplicationFolder() {
  WriteTextFile(folder_.In(u"Wren.exe"), u"");
  WriteTextFile(folder_.In(u"Wren.ini"), u"");
}

std::u16string ApplicationFolder::AddFile(const std::u16string& name,
                                          const std::u16string& text) const {
  const std::u16string path = folder_.In(name);
  WriteTextFile(path, text);
  return path;
}

std::u16string ApplicationFolder::AddPair(const std::u16string& name, int lines,
                                          int macroLines) const {
  AddFile(name + u".tmm", MacroFileText(macroLines));
  return AddFile(name + u".tmj", JoystickFileText(lines, name));
}

void ApplicationFolder::FillRecentFiles() const {
  std::u16string ini = u"[Previous Files]\nNumberPreviousFiles=" + Decimal(kLongestRecentList);
  for (int entry = 1; entry <= kLongestRecentList; ++entry) {
    ini += u"\nPreviousFilePath" + Decimal(entry) + u"=C:\\Games\\Joystick files\\mission " +
           Decimal(entry) + u".tmj";
  }
  WriteTextFile(folder_.In(u"WrenDeck.ini"), ini + u"\n");
}

double PumpUntilIdle(MessageLoop& loop) {
  double longest = 0;
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    longest = std::max(longest, CostOf([&] { loop.Dispatch(message); }));
  }
  return longest;
}

Session::Session(const ApplicationFolder& folder) : program_(std::make_unique<Program>()) {
  Require(program_->Load(folder.Path(), u"WrenDeck.exe"), "the program did not start");
  program_->Window().Place({750, 750, 13500, 9000, WindowState::kNormal});
  program_->Window().Show();
  Pump();
}

Session::~Session() {
  program_.reset();
  // The order to quit that the window's end may have left.
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

HWND Session::TextControl() {
  HWND control = nullptr;
  while ((control = FindWindowExW(Window(), control, nullptr, nullptr)) != nullptr) {
    if (GetDlgCtrlID(control) == static_cast<int>(ControlId::kText1) && IsWindowVisible(control)) {
      break;
    }
  }
  return control;
}

void Session::CloseAll() {
  for (int count = TheEditor().Documents().Count(); count > 0; --count) {
    TheEditor().Execute(CommandId::kFileClose);
  }
  Pump();
}

void Pump() {
  MessageLoop loop;
  PumpUntilIdle(loop);
}

BenchWindow::BenchWindow() {
  WNDCLASSW description{};
  description.lpfnWndProc = DefWindowProcW;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  description.lpszClassName = kWindowClass;
  RegisterClassW(&description);  // fails harmlessly when it was done before
  window_ = CreateWindowExW(0, kWindowClass, L"Measuring", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                            50, 50, 940, 660, nullptr, nullptr, description.hInstance, nullptr);
  ShowWindow(window_, SW_SHOWNA);
}

BareControls::BareControls(const RECT& place) : place_(place), font_(EditFonts().Make(kDpi)) {}

HWND BareControls::Add() {
  return CreateRichEdit(window_.Handle(), 1, place_, font_.Get());
}

}  // namespace deck
