// A long life of the whole program: opens, edits, saves, searches, compiles, turns tabs, shows its
// other windows and closes, again and again, by the messages that a user's hand causes. Tells what
// it holds of the system before and after, and how long its window ever kept a message waiting.
//
//   editor_soak <minutes> <folder of the stand-ins>
#include <windows.h>

#include <commctrl.h>
#include <psapi.h>
#include <shellapi.h>
#include <shlobj.h>
#include <tlhelp32.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/control_ids.h"
#include "platform/strings.h"
#include "platform/win32/handles.h"
#include "platform/win32/wide_text.h"
#include "tests/bench/bench_session.h"
#include "tests/bench/bench_texts.h"
#include "tests/bench/costs.h"
#include "tests/contract/win32/clocks.h"

namespace deck {
namespace {

constexpr int kFiles = 3;
constexpr int kLines = 2'000;
// What is made once and kept - fonts, the history of a box, the heap's spare room - is there by
// then.
constexpr int kFirstCycles = 10;
constexpr int kCyclesForEachCompile = 5;

// ---- What the process holds.

struct Held {
  long handles = 0;
  long gdiObjects = 0;
  long userObjects = 0;
  long windows = 0;
  long threads = 0;
  long kilobytes = 0;  // committed
};

long CountThreads() {
  const FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
  THREADENTRY32 entry{};
  entry.dwSize = sizeof entry;
  long count = 0;
  for (BOOL more = Thread32First(snapshot.Get(), &entry); more;
       more = Thread32Next(snapshot.Get(), &entry)) {
    if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
  }
  return count;
}

// Wine gives no number, so every value that a handle can have is asked for.
long CountHandles() {
  constexpr std::uintptr_t kMostHandles = 16'384;
  long count = 0;
  for (std::uintptr_t value = 4; value <= 4 * kMostHandles; value += 4) {
    DWORD flags = 0;
    if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) ++count;
  }
  return count;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
  ++*reinterpret_cast<long*>(count);
  if (GetAncestor(window, GA_PARENT) == GetDesktopWindow())
    EnumChildWindows(window, CountWindow, count);
  return TRUE;
}

Held WhatIsHeld() {
  Held held;
  held.threads = CountThreads();
  held.handles = CountHandles();
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&held.windows));
  held.gdiObjects = static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  held.userObjects = static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  held.kilobytes = static_cast<long>(memory.PagefileUsage / 1024);
  return held;
}

void Print(const char* when, const Held& held) {
  std::printf(
      "%-22s handles %4ld, GDI objects %4ld, USER objects %4ld, windows %3ld, threads %2ld, %7ld "
      "kB\n",
      when, held.handles, held.gdiObjects, held.userObjects, held.windows, held.threads,
      held.kilobytes);
  std::fflush(stdout);
}

// ---- Who waits for answers, on threads of their own.

// Asks the window for nothing, again and again, and keeps how long the answers took.
class Asker {
 public:
  explicit Asker(HWND window) : window_(window), thread_([this] { Run(); }) {}
  ~Asker() {
    ending_ = true;
    // The last question may be one to this thread's own window.
    while (!ended_) {
      MSG message{};
      PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
      Sleep(1);
    }
    thread_.join();
  }
  Asker(const Asker&) = delete;
  Asker& operator=(const Asker&) = delete;

  void Print(const char* whom) const {
    std::printf("%-22s asked %6ld times, longest answer %7.1f ms, over 100 ms %ld times\n", whom,
                asked_.load(), static_cast<double>(longest_) / 1000, late_.load());
  }

 private:
  void Run() {
    while (!ending_) {
      const double start = Milliseconds();
      DWORD_PTR answer = 0;
      SendMessageTimeoutW(window_, WM_NULL, 0, 0, SMTO_NORMAL, 60'000, &answer);
      const double took = Milliseconds() - start;
      ++asked_;
      if (took > 100) ++late_;
      longest_ = std::max(longest_.load(), static_cast<long>(took * 1000));
      Sleep(10);
    }
    ended_ = true;
  }

  HWND window_;
  std::atomic<bool> ending_ = false;
  std::atomic<bool> ended_ = false;
  std::atomic<long> asked_ = 0;
  std::atomic<long> late_ = 0;
  std::atomic<long> longest_ = 0;  // microseconds
  std::thread thread_;
};

// A window that does nothing: how late it answers is the machine's doing.
class IdleWindow {
 public:
  IdleWindow() : thread_([this] { Run(); }) {
    while (window_ == nullptr) Sleep(1);
  }
  ~IdleWindow() {
    PostMessageW(window_, WM_QUIT, 0, 0);
    thread_.join();
  }
  IdleWindow(const IdleWindow&) = delete;
  IdleWindow& operator=(const IdleWindow&) = delete;

  HWND Handle() const { return window_; }

 private:
  void Run() {
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    window_ = window;
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    DestroyWindow(window);
  }

  std::atomic<HWND> window_ = nullptr;
  std::thread thread_;
};

// Says OK to every box that the program shows.
class Agreeing {
 public:
  explicit Agreeing(DWORD guiThread) : guiThread_(guiThread), thread_([this] { Run(); }) {}
  ~Agreeing() {
    ending_ = true;
    thread_.join();
  }
  Agreeing(const Agreeing&) = delete;
  Agreeing& operator=(const Agreeing&) = delete;

  // To be called when no box is shown any more.
  void Print() const {
    for (const auto& [title, count] : boxes_)
      std::printf("  %ld x \"%ls\"\n", count, title.c_str());
  }

 private:
  static BOOL CALLBACK Look(HWND window, LPARAM self) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (std::wcscmp(name, L"#32770") == 0 && IsWindowVisible(window)) {
      constexpr int kTextOfABox = 0xFFFF;
      wchar_t title[100] = {};
      GetWindowTextW(window, title, 100);
      wchar_t text[300] = {};
      GetDlgItemTextW(window, kTextOfABox, text, 300);
      ++reinterpret_cast<Agreeing*>(self)->boxes_[std::wstring(title) + L": " + text];
      SendMessageW(window, WM_COMMAND, IDOK, 0);
    }
    return TRUE;
  }
  void Run() {
    while (!ending_) {
      EnumThreadWindows(guiThread_, Look, reinterpret_cast<LPARAM>(this));
      Sleep(20);
    }
  }

  DWORD guiThread_;
  std::atomic<bool> ending_ = false;
  std::map<std::wstring, long> boxes_;  // by title and text; of the thread
  std::thread thread_;
};

// Statements that the compiler takes, as many as its memory holds, and comments up to kLines; the
// last line is `last`.
std::u16string SoakText(const std::u16string& macroFile, const std::u16string& last) {
  constexpr int kStatements = 100;
  std::u16string text = u"USE MDEF " + macroFile + u"\n";
  for (int line = 1; line < kLines - 1; ++line) {
    const std::u16string macro = u"MACRO_" + Decimal(3 + line % 20);
    if (line > kStatements) text += u"rem once ";
    text += u"BTN S" + Decimal(line % 4 + 1);
    for (const char16_t* modifier : {u" /I ", u" /O "}) text += modifier + macro;
    text += u'\n';
  }
  return text + last + u"\n";
}

// ---- The user's hand.

class User {
 public:
  User(Session& session, std::vector<std::u16string> files)
      : session_(session), files_(std::move(files)) {}

  // What each kind of step cost: by the clock, and of the processor, whoever else used it.
  void Print() const {
    std::printf("longest single message of each step, on average and at most, in milliseconds:\n");
    for (const auto& [name, cost] : costs_) {
      std::printf(
          "  %-24s %7ld times, %7.1f, %7.1f by the clock, %5.0f of the processor, over 100 %ld "
          "times\n",
          name.c_str(), cost.times, cost.all / static_cast<double>(cost.times), cost.longest,
          cost.busiest, cost.late);
    }
  }

  void LeaveTextUnsaved() {
    Drop(files_.front());
    ClickTab(0);
    Post(session_.TextControl(), WM_CHAR, L'x', 1);
    Settle("key");
  }
  void SaveAndClose() {
    Do("undo", CommandId::kUndo);
    Do("save", CommandId::kFileSave);
    CloseAll();
  }

  // `compile`: which of the files, if any.
  void Cycle(std::optional<std::size_t> compile) {
    for (const std::u16string& file : files_) Drop(file);
    for (const std::u16string& file : files_) {
      ClickTabOf(file);
      Type();
      Do("save", CommandId::kFileSave);
    }
    Find();
    Do("block REM", CommandId::kBlockRem);
    Do("block un-REM", CommandId::kBlockUnRem);
    Do("undo", CommandId::kUndo);
    Do("undo", CommandId::kUndo);
    Do("save", CommandId::kFileSave);
    for (int turn = 0; turn < 4; ++turn) Do("next tab", CommandId::kNextTab);
    if (compile) {
      ClickTabOf(files_[*compile]);
      Compile();
    }
    ShowAndClose("key tester", CommandId::kKeyTest, L"KeyTestForm");
    ShowAndClose("quick help", CommandId::kHelpSyntax, L"InfoWindow");
    Do("save all", CommandId::kFileSaveAll);
    CloseAll();
    Do("new", CommandId::kFileNew);
    Do("close", CommandId::kFileClose);
  }

 private:
  struct StepCost {
    long times = 0;
    double all = 0;  // milliseconds
    double longest = 0;
    double busiest = 0;
    long late = 0;
  };

  void Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    PostMessageW(window, message, wParam, lParam);
  }
  // Until the program has nothing left to do.
  void Settle(const char* step) {
    const double busyBefore = ProcessorMilliseconds();
    const double took = session_.Pump();
    StepCost& cost = costs_[step];
    ++cost.times;
    cost.all += took;
    cost.longest = std::max(cost.longest, took);
    cost.busiest = std::max(cost.busiest, ProcessorMilliseconds() - busyBefore);
    if (took > 100) ++cost.late;
  }
  void Do(const char* step, CommandId command) {
    Post(session_.Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    Settle(step);
  }
  void Drop(const std::u16string& file) {
    const std::size_t bytes = sizeof(DROPFILES) + (file.size() + 2) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GHND, bytes);
    auto* const drop = static_cast<DROPFILES*>(GlobalLock(memory));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(drop + 1, Wide(file), file.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    Post(session_.Window(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    Settle("open");
  }
  void ClickTabOf(const std::u16string& file) {
    DocumentSet& documents = session_.TheEditor().Documents();
    for (int index = 0; index < documents.Count(); ++index) {
      if (documents[index].path == file) return ClickTab(index);
    }
  }
  void ClickTab(int index) {
    const HWND tabs = GetDlgItem(session_.Window(), static_cast<int>(ControlId::kTabStrip1));
    RECT place{};
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&place));
    const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    Post(tabs, WM_LBUTTONDOWN, MK_LBUTTON, point);
    Post(tabs, WM_LBUTTONUP, 0, point);
    Settle("tab");
  }
  // The macro files have come onto tabs of their own.
  void CloseAll() {
    for (int tabs = session_.TheEditor().Documents().Count(); tabs > 0; --tabs)
      Do("close", CommandId::kFileClose);
  }
  // The same length goes as comes, so that every cycle begins with the same text.
  void Type() {
    const HWND box = session_.TextControl();
    const std::string letters = "rem soak";
    for (const char letter : letters) {
      Post(box, WM_CHAR, static_cast<WPARAM>(letter), 1);
      Settle("key");
    }
    for (std::size_t i = 0; i < letters.size(); ++i) {
      Post(box, WM_KEYDOWN, VK_BACK, 1);
      Settle("backspace");
    }
  }
  void Find() {
    Do("find dialog", CommandId::kFind);
    const HWND dialog = FindWindowW(L"FindAndReplace", nullptr);
    if (dialog == nullptr) return;
    COMBOBOXINFO field{};
    field.cbSize = sizeof field;
    GetComboBoxInfo(GetDlgItem(dialog, static_cast<int>(ControlId::kComboTextFind)), &field);
    SendMessageW(field.hwndItem, EM_SETSEL, 0, -1);
    for (const wchar_t letter : std::wstring(L"BTN")) {
      Post(field.hwndItem, WM_CHAR, letter, 1);
      Settle("key in the find dialog");
    }
    Post(dialog, WM_COMMAND, static_cast<WPARAM>(ControlId::kFindCommand1), 0);
    Settle("find");
    Post(dialog, WM_CLOSE, 0, 0);
    Settle("find dialog's end");
  }
  void ShowAndClose(const char* step, CommandId command, const wchar_t* windowClass) {
    Do(step, command);
    if (const HWND window = FindWindowW(windowClass, nullptr)) {
      Post(window, WM_CLOSE, 0, 0);
      Settle(step);
    }
  }
  // The program pumps messages itself while it waits, so the command's own time says nothing.
  void Compile() { Do("compile and its wait", CommandId::kCompile); }

  Session& session_;
  std::vector<std::u16string> files_;
  std::map<std::string, StepCost> costs_;
};

bool SameButMemory(const Held& left, const Held& right) {
  return left.handles == right.handles && left.windows == right.windows &&
         left.gdiObjects == right.gdiObjects && left.userObjects == right.userObjects &&
         left.threads == right.threads;
}

// The recovery timer ticks every two seconds.
constexpr int kTicks = 50;

void Rest(Session& session) {
  Sleep(100);
  session.Pump();
}

int Soak(double minutes, const std::u16string& applicationFolder) {
  const ApplicationFolder folder;
  const std::u16string from = applicationFolder + u"\\";
  for (const char16_t* name : {u"HOTASCompiler.exe", u"KeyCodes.txt"}) {
    if (!Win32Files().Copy(from + name, folder.In(name))) {
      std::printf("no stand-ins are there\n");
      return 2;
    }
  }
  WritePrivateProfileStringW(L"Unsupported", L"CheckForCompletionTime", L"50",
                             Wide(folder.In(u"Wren.ini")));
  std::vector<std::u16string> files;
  for (int file = 1; file <= kFiles; ++file) {
    const std::u16string name = u"soak" + Decimal(file);
    folder.AddFile(name + u".tmm", MacroFileText(kLines / 10));
    // The last one has an error to land on.
    const std::u16string last = file == kFiles ? u"BTN S1 NO_SUCH_MACRO" : u"rem the end";
    files.push_back(folder.AddFile(name + u".tmj", SoakText(name, last)));
  }

  Session session(folder);
  const IdleWindow idle;
  const Asker askIdle(idle.Handle());
  const Asker askEditor(session.Window());
  const Agreeing agreeing(GetCurrentThreadId());
  User user(session, files);

  // The thread for kept texts is made with the first of them.
  user.LeaveTextUnsaved();
  for (int wait = 0; wait < kTicks; ++wait) Rest(session);
  user.SaveAndClose();

  const double start = Milliseconds();
  Held first;
  long cycles = 0;
  long compiles = 0;
  while (cycles <= kFirstCycles || Milliseconds() - start < minutes * 60'000) {
    std::optional<std::size_t> compile;
    if (cycles % kCyclesForEachCompile == 0)
      compile = static_cast<std::size_t>(compiles++) % files.size();
    user.Cycle(compile);
    if (++cycles == 1) Print("after the first cycle", WhatIsHeld());
    if (cycles == kFirstCycles) {
      first = WhatIsHeld();
      Print("after ten cycles", first);
    }
  }
  for (int wait = 0; wait < kTicks; ++wait) Rest(session);
  const Held last = WhatIsHeld();
  Print("at the end", last);
  std::printf("%ld cycles, %ld compiles, %.1f minutes; boxes:\n", cycles, compiles,
              (Milliseconds() - start) / 60'000);
  agreeing.Print();
  user.Print();
  askEditor.Print("the editor's window");
  askIdle.Print("a window that idles");
  const bool same = SameButMemory(first, last);
  std::printf("%s\n", same ? "nothing was left over" : "LEFT OVER: the counts differ");
  return same ? 0 : 1;
}

}  // namespace
}  // namespace deck

int wmain(int count, wchar_t** arguments) {
  if (count != 3) {
    std::printf("editor_soak <minutes> <folder of the stand-ins>\n");
    return 2;
  }
  return deck::Soak(std::wcstod(arguments[1], nullptr), deck::FromWide(arguments[2]));
}
