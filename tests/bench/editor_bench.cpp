// What the whole program costs its user: start, opening, the jump to an error, tab switches, single
// messages. Prints tables; docs/performance.md tells what is compared.
//
//   editor_bench [WrenDeck.exe]    also starts that program as a process of its own
#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/recent_files.h"
#include "compiler/highlight_error_line.h"
#include "documents/win32/rich_edit_control.h"
#include "platform/background_thread.h"
#include "platform/control_ids.h"
#include "platform/strings.h"
#include "platform/win32/wide_text.h"
#include "tests/bench/bench_session.h"
#include "tests/bench/bench_texts.h"
#include "tests/bench/costs.h"

namespace deck {
namespace {

struct Size {
  int lines;
  int rounds;
};
constexpr Size kSizes[] = {{200, 15}, {2'000, 9}, {10'000, 3}};
constexpr int kLinesWith2000Macros = 2'300;

constexpr double kMostOpeningRatio = 1.15;
constexpr double kMostGrowth = 1.5;         // of the cost of one line
constexpr double kMostTabSwitch = 50;       // milliseconds
constexpr double kMostSingleMessage = 100;  // milliseconds

bool allBoundsHold = true;

const char* Verdict(bool holds) {
  allBoundsHold = allBoundsHold && holds;
  return holds ? "holds" : "MISSED";
}

RECT PlaceOf(HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// ---- Start.

void MeasureStart() {
  Costs start;
  double first = 0;
  for (int round = 0; round < 9; ++round) {
    const ApplicationFolder folder;
    folder.FillRecentFiles();
    const double cost = CostOf([&] { const Session session(folder); });
    if (round == 0) first = cost;
    start.Add(cost);
  }
  std::printf("start to first idle, and the end, in this process\n");
  std::printf("  the first time %8.1f ms, median %8.1f ms\n\n", first, start.Median());
}

// Until the process waits for input with its window in view; negative when it does not start.
double StartProcess(const std::u16string& program) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  const double start = Milliseconds();
  if (!CreateProcessW(Wide(program), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &process)) {
    return -1;
  }
  HWND window = nullptr;
  while (window == nullptr && WaitForSingleObject(process.hProcess, 1) == WAIT_TIMEOUT) {
    window = FindWindowW(L"Editor", L"Wren Deck");
    if (window != nullptr && !IsWindowVisible(window)) window = nullptr;
  }
  WaitForInputIdle(process.hProcess, INFINITE);
  const double cost = window == nullptr ? -1 : Milliseconds() - start;
  PostMessageW(window, WM_CLOSE, 0, 0);
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return cost;
}

void MeasureProcessStart(const std::u16string& program) {
  Costs start;
  for (int round = 0; round < 9; ++round) start.Add(StartProcess(program));
  std::printf("start of the process to its window waiting for input\n  median %8.1f ms\n\n",
              start.Median());
}

// ---- Opening.

struct Opening {
  Costs bare, editor, editorAgain, painting, highlight, bareHighlight;
};

// The same two texts: one into a control that is in view, one into a hidden one that is made for
// it.
void OpenBare(const Size& size, const RECT& place, MessageLoop& loop, Opening& costs) {
  const std::u16string joystick = JoystickFileText(size.lines);
  const std::u16string macros = MacroFileText(size.lines);
  BareControls bare(place);
  const HWND shown = bare.Add();
  ShowWindow(shown, SW_SHOWNA);
  PumpUntilIdle(loop);
  costs.bare.Add(CostOf([&] {
    StreamIntoControl(shown, joystick);
    StreamIntoControl(bare.Add(), macros);
    PumpUntilIdle(loop);
  }));
  const auto lastLine = static_cast<int>(joystick.rfind(u'\n', joystick.size() - 2)) + 1;
  costs.bareHighlight.Add(CostOf([&] {
    SelectInControl(shown, {lastLine, static_cast<int>(joystick.size()) - lastLine});
    SendMessageW(shown, EM_SCROLLCARET, 0, 0);
    PumpUntilIdle(loop);
  }));
}

void HighlightLastLine(Session& session, int lines) {
  StatusBar status(session.TheProgram().Window());
  Win32Prompts prompts([] { return HWND{}; });
  HighlightErrorLine(static_cast<std::int16_t>(lines), u"Error 1001",
                     session.TheEditor().Documents(), status, prompts);
  session.Pump();
}

void OpenInEditor(const Size& size, const std::u16string& path, Session& session, Opening& costs) {
  const auto open = [&] {
    session.Open(path);
    costs.painting.Add(CostOf([&] { session.Pump(); }));
  };
  // The bare controls of the round before have uncovered this window as they went.
  session.Pump();
  costs.editor.Add(CostOf(open));
  costs.highlight.Add(CostOf([&] { HighlightLastLine(session, size.lines); }));
  session.CloseAll();
  costs.editorAgain.Add(CostOf(open));
  session.CloseAll();
}

Opening MeasureOpening(const Size& size) {
  const ApplicationFolder folder;
  folder.FillRecentFiles();
  Session session(folder);
  MessageLoop loop;
  Opening costs;
  // One round more, whose costs are those of a program that has not opened anything before.
  Opening unused;
  for (int round = 0; round <= size.rounds; ++round) {
    Opening& counted = round == 0 ? unused : costs;
    // A name of its own, so that the whole list of recent files moves down.
    const std::u16string path = folder.AddPair(u"mission" + Decimal(round), size.lines, size.lines);
    OpenInEditor(size, path, session, counted);
    OpenBare(size, PlaceOf(session.TextControl()), loop, counted);
  }
  return costs;
}

void PrintGrowth(const char* name, const std::vector<double>& costs) {
  const double perLine = costs[1] / kSizes[1].lines;
  const double later = costs[2] / kSizes[2].lines / perLine;
  std::printf("  %s: one line of %d costs %.2f times one of %d\n", name, kSizes[2].lines, later,
              kSizes[1].lines);
}

void MeasureOpenings() {
  std::printf("opening a joystick file and its macro file of as many lines (medians, ms)\n");
  std::printf("   lines  bare controls    new file  x bare       opened before  x bare\n");
  std::vector<double> bareGrowth;
  std::vector<double> growth;
  std::vector<Opening> all;
  for (const Size& size : kSizes) {
    const Opening costs = MeasureOpening(size);
    const double bare = costs.bare.Median();
    const auto ratio = [bare](const Costs& cost) { return cost.Median() / bare; };
    std::printf("  %6d %14.1f %11.1f %7.2f %-6s %12.1f %7.2f %s\n", size.lines, bare,
                costs.editor.Median(), ratio(costs.editor),
                Verdict(ratio(costs.editor) <= kMostOpeningRatio), costs.editorAgain.Median(),
                ratio(costs.editorAgain), Verdict(ratio(costs.editorAgain) <= kMostOpeningRatio));
    std::fflush(stdout);
    bareGrowth.push_back(bare);
    growth.push_back(costs.editor.Median());
    all.push_back(costs);
  }
  PrintGrowth("bare controls", bareGrowth);
  PrintGrowth("the editor", growth);
  const double added = (growth[2] / bareGrowth[2]) / (growth[1] / bareGrowth[1]);
  std::printf("  linear beside the control: %s\n", Verdict(added <= kMostGrowth));

  std::printf("  painted after the command, which is part of it:");
  for (const Opening& costs : all) std::printf(" %.1f", costs.painting.Median());
  std::printf("\n\n");

  std::printf("highlight of the last line (medians, ms)\n   lines  bare control      editor\n");
  for (std::size_t i = 0; i < all.size(); ++i) {
    std::printf("  %6d %13.1f %11.1f\n", kSizes[i].lines, all[i].bareHighlight.Median(),
                all[i].highlight.Median());
  }
  std::printf("\n");
}

// ---- What opening does besides loading the control.

double CostOfRecentFiles() {
  const ApplicationFolder folder;
  folder.FillRecentFiles();
  Session session(folder);
  const Win32CodePage codePage;
  Win32ProfileFiles profiles(codePage);
  Settings settings;
  settings.SettingsPath = folder.In(u"WrenDeck.ini");
  settings.MaxPreviousFiles = kLongestRecentList;
  BackgroundThread background;
  RecentFileList recentFiles(profiles, background, session.TheProgram().Window(), settings);
  recentFiles.LoadRecentFiles();
  Costs costs;
  for (int round = 0; round < 15; ++round) {
    costs.Add(CostOf([&] {
      recentFiles.AddRecentFile(folder.In(u"new" + Decimal(round)));
      background.Finish();
    }));
  }
  return costs.Median();
}

double CostOfMacros(int lines) {
  const ApplicationFolder folder;
  Session session(folder);
  folder.AddPair(u"one", 1, lines);
  folder.AddPair(u"two", 1, lines);
  Costs costs;
  for (int round = 0; round < 9; ++round) {
    const std::u16string path = folder.In(round % 2 == 0 ? u"one.tmm" : u"two.tmm");
    costs.Add(CostOf([&] {
      session.TheEditor().Macros().ShowMacrosOf(path);
      session.Pump();
    }));
  }
  return costs.Median();
}

// The control for a macro file's text is made when its tab is first in front.
double CostOfFirstLook(const Size& size) {
  const ApplicationFolder folder;
  Session session(folder);
  const std::u16string path = folder.AddPair(u"file", size.lines, size.lines);
  Costs costs;
  for (int round = 0; round < size.rounds; ++round) {
    session.Open(path);
    session.Pump();
    costs.Add(CostOf([&] {
      session.TheEditor().OnTabClicked(2);
      session.Pump();
    }));
    session.CloseAll();
  }
  return costs.Median();
}

void MeasureParts() {
  std::printf("parts of opening besides the texts (medians, ms)\n");
  std::printf("  a full list of recent files, in background %8.1f\n", CostOfRecentFiles());
  for (const Size& size : kSizes) {
    std::printf("  macros of %6d lines read and shown       %8.1f\n", size.lines,
                CostOfMacros(size.lines));
  }
  std::printf("not part of it: the macro file's tab, when first in front (medians, ms)\n");
  for (const Size& size : kSizes) {
    std::printf("  of %6d lines                            %8.1f\n", size.lines,
                CostOfFirstLook(size));
  }
  std::printf("\n");
  std::fflush(stdout);
}

// ---- Tabs.

double MeasureSwitch(Session& session, int from, int to) {
  Costs costs;
  for (int round = 0; round < 15; ++round) {
    session.TheEditor().OnTabClicked(from);
    session.Pump();
    costs.Add(CostOf([&] {
      session.TheEditor().OnTabClicked(to);
      session.Pump();
    }));
  }
  return costs.Median();
}

void MeasureTabSwitches() {
  const ApplicationFolder folder;
  Session session(folder);
  session.Open(folder.AddPair(u"first", 2'000, kLinesWith2000Macros));
  session.Open(folder.AddPair(u"second", 2'000, kLinesWith2000Macros));
  session.Pump();
  const struct {
    const char* name;
    int from, to;
  } switches[] = {{"from its macro file", 2, 1}, {"from a joystick file with other macros", 3, 1}};
  std::printf("tab switch to a joystick file of 2,000 lines with 2,000 macros (medians)\n");
  for (const auto& row : switches) {
    const double cost = MeasureSwitch(session, row.from, row.to);
    std::printf("  %-42s %8.1f ms  %s\n", row.name, cost, Verdict(cost < kMostTabSwitch));
  }
  std::printf("\n");
}

// ---- Single messages.

struct Action {
  const char* name;
  std::function<void(Session&)> begin;  // posts messages
};

void Post(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  PostMessageW(window, message, wParam, lParam);
}

std::function<void(Session&)> Command(CommandId command) {
  return [command](Session& session) {
    Post(session.Window(), WM_COMMAND, static_cast<WPARAM>(command));
  };
}

std::function<void(Session&)> Key(WPARAM key) {
  return [key](Session& session) {
    Post(session.TextControl(), WM_KEYDOWN, key, 1);
    Post(session.TextControl(), WM_KEYUP, key, 1);
  };
}

std::function<void(Session&)> Character(WPARAM character) {
  return [character](Session& session) { Post(session.TextControl(), WM_CHAR, character, 1); };
}

void PostClick(HWND window, int x, int y) {
  Post(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
  Post(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

void ClickTab(Session& session, int index) {
  const HWND tabs = GetDlgItem(session.Window(), static_cast<int>(ControlId::kTabStrip1));
  RECT tab{};
  SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&tab));
  PostClick(tabs, tab.left + 4, tab.top + 4);
}

void ClickMacro(Session& session) {
  const HWND frame = GetDlgItem(session.Window(), static_cast<int>(ControlId::kFrameMacros));
  PostClick(GetDlgItem(frame, static_cast<int>(ControlId::kList1)), 20, 100);
}

void SelectMiddle(Session& session) {
  EditBox& box = session.TheEditor().Documents().GetCurrentTextBox();
  box.Select({box.StartOfLine(1'000), 0});
  session.Pump();
}

const std::vector<Action>& Actions() {
  static const std::vector<Action> actions = {
      {"a typed character", Character('x')},
      {"Enter", Character('\r')},
      {"Backspace", Key(VK_BACK)},
      {"an arrow key", Key(VK_DOWN)},
      {"Page Down", Key(VK_NEXT)},
      {"a click into the text", [](Session& session) { PostClick(session.TextControl(), 90, 90); }},
      {"block REM of a line", Command(CommandId::kBlockRem)},
      {"Undo", Command(CommandId::kUndo)},
      {"Save", Command(CommandId::kFileSave)},
      {"a click on a macro", ClickMacro},
      {"a tab: to the macro file", [](Session& session) { ClickTab(session, 1); }},
      {"a tab: to the joystick file", [](Session& session) { ClickTab(session, 0); }},
      {"a tab: with other macros", [](Session& session) { ClickTab(session, 2); }},
      {"and back", [](Session& session) { ClickTab(session, 0); }},
      {"View macros, off", Command(CommandId::kViewMacros)},
      {"View macros, on", Command(CommandId::kViewMacros)},
      {"Select all", Command(CommandId::kSelectAll)},
      {"minimise", [](Session& session) { Post(session.Window(), WM_SYSCOMMAND, SC_MINIMIZE); }},
      {"restore", [](Session& session) { Post(session.Window(), WM_SYSCOMMAND, SC_RESTORE); }},
  };
  return actions;
}

void MeasureMessages() {
  constexpr int kRounds = 7;
  const ApplicationFolder folder;
  folder.FillRecentFiles();
  Session session(folder);
  session.Open(folder.AddPair(u"first", 2'000, 2'000));
  session.Open(folder.AddPair(u"second", 2'000, 2'000));
  session.TheEditor().OnTabClicked(1);
  session.Pump();
  std::vector<Costs> longest(Actions().size());
  for (int round = 0; round < kRounds; ++round) {
    SelectMiddle(session);
    for (std::size_t i = 0; i < longest.size(); ++i) {
      Actions()[i].begin(session);
      longest[i].Add(session.Pump());
    }
  }
  std::printf("longest single message, files of 2,000 lines (medians of the longest)\n");
  for (std::size_t i = 0; i < longest.size(); ++i) {
    const double cost = longest[i].Median();
    std::printf("  %-42s %8.1f ms  %s\n", Actions()[i].name, cost,
                Verdict(cost <= kMostSingleMessage));
  }
}

int Run(int argumentCount, wchar_t** arguments) {
  MeasureStart();
  if (argumentCount > 1) MeasureProcessStart(FromWide(arguments[1]));
  MeasureParts();
  MeasureOpenings();
  MeasureTabSwitches();
  MeasureMessages();
  std::printf("\n%s\n", allBoundsHold ? "all bounds hold" : "at least one bound is missed");
  return allBoundsHold ? 0 : 1;
}

}  // namespace
}  // namespace deck

int wmain(int argumentCount, wchar_t** arguments) {
  return deck::Run(argumentCount, arguments);
}
