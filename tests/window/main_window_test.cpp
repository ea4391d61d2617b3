// The window itself: layout, place, resolution, closing, and what it reports of the system.
#include <windows.h>

#include <shlobj.h>

#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <new>
#include <regex>
#include <string>
#include <utility>

#include "documents/win32/rich_edit_box.h"
#include "platform/strings.h"
#include "platform/win32/wide_text.h"
#include "tests/window/main_window_fixture.h"

namespace deck {
namespace {

constexpr UINT kDpiChanged = 0x02E0;

class MainWindowTest : public MainWindowFixture {
 protected:
  HWND Handle() const { return window.Handle(); }
  static RECT ScreenPlace(HWND control) {
    RECT rect{};
    GetWindowRect(control, &rect);
    return rect;
  }
  void Resize(int width, int height) {
    SetWindowPos(Handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
  }
  int StatusHeight() const { return PlaceOf(Status()).height; }
  int ToolbarHeight() const { return PlaceOf(Control(ControlId::kToolbar1)).height; }
  int ClientWidth() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    return client.right;
  }
  int ClientHeight() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    return client.bottom;
  }
  void ExpectEditBoxInsideTabStrip(int left, int top, int sides) const {
    const Rectangle tabs = PlaceOf(Tabs());
    EXPECT_EQ(PlaceOf(Control(ControlId::kText1)),
              (Rectangle{tabs.left + left, tabs.top + top, tabs.width - sides,
                         tabs.height - StatusHeight()}));
  }
  bool QuitIsOrdered() const {
    MSG message{};
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != 0;
  }
};

// What a later start would send; gives the reply.
LRESULT HandOverTo(HWND window, ULONG_PTR kind, std::string bytes) {
  COPYDATASTRUCT data{kind, static_cast<DWORD>(bytes.size()), bytes.data()};
  return SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
}

struct LaterStarts : MainWindowTest {
  LaterStarts() {
    window.events.isWaiting = [this] { return waiting; };
    window.events.fileHandedOver = [this](const std::u16string& path) {
      events.push_back("handed over " + Narrow(path));
      if (whileOpening) whileOpening();
    };
  }
  LRESULT HandOver(std::u16string_view path) {
    return HandOverTo(Handle(), kHandOverKind, EncodeHandOver(path));
  }

  bool waiting = true;
  std::function<void()> whileOpening;
};

TEST_F(LaterStarts, HandOverAFileToAWindowThatWaitsForTheUser) {
  EXPECT_EQ(HandOver(u"C:\\a.tmj"), static_cast<LRESULT>(HandOverReply::kTaken));
  EXPECT_TRUE(Happened("handed over C:\\a.tmj"));
}

TEST_F(LaterStarts, AreAskedToComeAgainDuringABoxACommandOrAnotherFile) {
  const auto busy = static_cast<LRESULT>(HandOverReply::kBusy);
  EnableWindow(Handle(), FALSE);
  EXPECT_EQ(HandOver(u"C:\\a.tmj"), busy);
  EnableWindow(Handle(), TRUE);
  waiting = false;
  EXPECT_EQ(HandOver(u"C:\\a.tmj"), busy);
  waiting = true;
  EXPECT_FALSE(Happened("handed over C:\\a.tmj"));
  LRESULT second = 0;
  whileOpening = [&] { second = HandOver(u"C:\\b.tmj"); };
  EXPECT_EQ(HandOver(u"C:\\a.tmj"), static_cast<LRESULT>(HandOverReply::kTaken));
  EXPECT_EQ(second, busy);
  EXPECT_FALSE(Happened("handed over C:\\b.tmj"));
}

TEST_F(LaterStarts, BringAMinimisedWindowBackWithoutAFile) {
  ShowWindowed();
  ShowWindow(Handle(), SW_MINIMIZE);
  ASSERT_TRUE(IsIconic(Handle()));
  EXPECT_EQ(HandOver(u""), static_cast<LRESULT>(HandOverReply::kTaken));
  EXPECT_FALSE(IsIconic(Handle()));
}

TEST_F(LaterStarts, FindAWindowClosedThatIsOnItsWayOut) {
  SendMessageW(Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(HandOver(u""), static_cast<LRESULT>(HandOverReply::kBusy));
  EXPECT_EQ(HandOver(u"C:\\a.tmj"), static_cast<LRESULT>(HandOverReply::kBusy));
  EXPECT_FALSE(Happened("handed over C:\\a.tmj"));
  // The program takes its part of the window back before the window ends.
  window.events = {};
  EXPECT_EQ(HandOver(u"C:\\a.tmj"), static_cast<LRESULT>(HandOverReply::kBusy));
}

TEST_F(LaterStarts, CannotMakeItDoAnythingElse) {
  events.clear();
  for (const std::string& bytes :
       {std::string(), std::string("x"), std::string(3000, '\xFF'), EncodeHandOver(u"a.tmj"),
        EncodeHandOver(u"\\\\.\\COM1"), std::string("C\0:\0\\\0a\0", 8)}) {
    EXPECT_EQ(HandOverTo(Handle(), kHandOverKind, bytes), 0);
  }
  EXPECT_EQ(HandOverTo(Handle(), 1, EncodeHandOver(u"C:\\a.tmj")), 0);
  COPYDATASTRUCT empty{static_cast<ULONG_PTR>(kHandOverKind), 100, nullptr};
  EXPECT_EQ(SendMessageW(Handle(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&empty)), 0);
  EXPECT_EQ(events, std::vector<std::string>());
}

TEST_F(MainWindowTest, RefusesFilesOfLaterStartsUnlessItListens) {
  EXPECT_EQ(HandOverTo(Handle(), kHandOverKind, EncodeHandOver(u"C:\\a.tmj")), 0);
}

TEST_F(MainWindowTest, IsFoundByClassAndTitle) {
  EXPECT_EQ(FindWindowW(L"Editor", L"Wren Deck"), Handle());
}

TEST_F(MainWindowTest, ControlsHaveTheClassesThatScriptsLookFor) {
  const auto box = window.CreateEditBox({});
  box->SetVisible(true);
  for (const ControlRow& row : kControls) {
    if (row.window != u"Editor" && row.window != u"FrameMacros") continue;
    const HWND parent = row.window == u"FrameMacros" ? Frame() : Handle();
    const HWND control = Control(row.id, parent);
    ASSERT_NE(control, nullptr) << Narrow(row.name);
    std::array<wchar_t, 100> name{};
    GetClassNameW(control, name.data(), static_cast<int>(name.size()));
    // Names of classes are the same in any case; the system spells that of the edit box in its own.
    EXPECT_TRUE(EqualsIgnoringCase(FromWide(name.data()), row.windowClass)) << Narrow(row.name);
  }
}

// ---- Layout.

TEST_F(MainWindowTest, TabStripAndEditBoxFillTheWindowAtEverySize) {
  const auto box = window.CreateEditBox({});
  box->SetVisible(true);
  ShowWindowed();
  for (const auto& [width, height] : {std::pair{900, 600}, {700, 500}, {1100, 800}}) {
    Resize(width, height);
    EXPECT_EQ(PlaceOf(Tabs()), (Rectangle{0, ToolbarHeight(), ClientWidth(),
                                          ClientHeight() - StatusHeight() - ToolbarHeight()}));
    ExpectEditBoxInsideTabStrip(3, 23, 6);
    EXPECT_FALSE(IsWindowVisible(Frame()));
  }
}

TEST_F(MainWindowTest, ToolbarStandsOnTopInFullWidth) {
  ShowWindowed();
  const Rectangle toolbar = PlaceOf(Control(ControlId::kToolbar1));
  EXPECT_EQ(toolbar.top, 0);
  EXPECT_EQ(toolbar.width, ClientWidth());
  EXPECT_GT(toolbar.height, 16);
}

TEST_F(MainWindowTest, MacroPanelTakesItsWidthFromTheTabStrip) {
  const auto box = window.CreateEditBox({});
  box->SetVisible(true);
  ShowWindowed();
  window.PositionControls(300);
  EXPECT_TRUE(IsWindowVisible(Frame()));
  EXPECT_EQ(PlaceOf(Frame()), (Rectangle{0, ToolbarHeight(), 300,
                                         ClientHeight() - StatusHeight() - ToolbarHeight()}));
  EXPECT_EQ(PlaceOf(Tabs()).left, 300);
  EXPECT_EQ(PlaceOf(Tabs()).right(), ClientWidth());
  ExpectEditBoxInsideTabStrip(3, 23, 6);
  window.PositionControls(0);
  EXPECT_FALSE(IsWindowVisible(Frame()));
  EXPECT_EQ(PlaceOf(Tabs()).left, 0);
}

TEST_F(MainWindowTest, EditBoxMadeLaterStandsWhereTheOthersStand) {
  ShowWindowed();
  window.PositionControls(200);
  const auto first = window.CreateEditBox({});
  first->SetVisible(true);
  const Rectangle place = PlaceOf(Control(ControlId::kText1));
  first->SetVisible(false);
  const auto second = window.CreateEditBox({});
  second->SetVisible(true);
  const auto* box = dynamic_cast<const RichEditBox*>(second.get());
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(PlaceOf(box->Window()), place);
}

TEST_F(MainWindowTest, EditBoxThatWasHiddenTakesThePresentPlaceWhenItIsShown) {
  ShowWindowed();
  const auto box = window.CreateEditBox({});
  box->SetVisible(true);
  box->SetVisible(false);
  Resize(700, 500);
  window.PositionControls(150);
  box->SetVisible(true);
  ExpectEditBoxInsideTabStrip(3, 23, 6);
}

TEST_F(MainWindowTest, EditBoxLiesInFrontOfTheTabStrip) {
  ShowWindowed();
  const auto box = window.CreateEditBox({});
  box->SetVisible(true);
  const Rectangle place = PlaceOf(Tabs());
  EXPECT_EQ(
      ChildWindowFromPointEx(Handle(), {place.left + place.width / 2, place.top + place.height / 2},
                             CWP_SKIPINVISIBLE),
      Control(ControlId::kText1));
}

TEST_F(MainWindowTest, TabsEndWhereTheEditBoxBegins) {
  ShowWindowed();
  window.InsertTab(1, u"a.tmj");
  RECT inside{0, 0, PlaceOf(Tabs()).width, PlaceOf(Tabs()).height};
  SendMessageW(Tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
  EXPECT_LE(inside.top, 26);
  RECT tab{};
  SendMessageW(Tabs(), TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
  EXPECT_LE(tab.bottom, 23);
}

TEST_F(MainWindowTest, CannotBeMadeSmallerThanItsControlsNeed) {
  ShowWindowed();
  Resize(10, 10);
  const RECT rect = ScreenPlace(Handle());
  EXPECT_GE(rect.right - rect.left, 480);
  EXPECT_GE(rect.bottom - rect.top, 320);
}

// ---- Resolution.

TEST_F(MainWindowTest, NewResolutionScalesOffsetsFontsAndPanel) {
  const auto box = window.CreateEditBox({});
  box->SetVisible(true);
  ShowWindowed();
  window.PositionControls(200);
  const int statusHeight = StatusHeight();
  const auto itemHeight = SendMessageW(Macros(), LB_GETITEMHEIGHT, 0, 0);
  RECT suggested{0, 0, 1200, 900};
  SendMessageW(Handle(), kDpiChanged, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  const RECT now = ScreenPlace(Handle());
  EXPECT_EQ(now.right - now.left, 1200);
  EXPECT_EQ(now.bottom - now.top, 900);
  EXPECT_EQ(PlaceOf(Frame()).width, 400);
  EXPECT_GE(StatusHeight(), 2 * statusHeight - 4);
  EXPECT_GE(SendMessageW(Macros(), LB_GETITEMHEIGHT, 0, 0), 2 * itemHeight - 4);
  ExpectEditBoxInsideTabStrip(6, 46, 12);
}

TEST_F(MainWindowTest, NewResolutionKeepsTheTextAndMakesItReadable) {
  const auto box = window.CreateEditBox({});
  ShowWindowed();
  box->SetVisible(true);
  box->Load(u"one\ntwo\nthree");
  box->Select({4, 3});
  const auto lineHeight = [this] {
    POINTL first{};
    POINTL second{};
    const HWND text = Control(ControlId::kText1);
    SendMessageW(text, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&first), 0);
    SendMessageW(text, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&second), 4);
    return second.y - first.y;
  };
  const LONG before = lineHeight();
  RECT suggested{0, 0, 1200, 900};
  SendMessageW(Handle(), kDpiChanged, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  EXPECT_EQ(box->Text(), u"one\ntwo\nthree");
  EXPECT_EQ(box->Selection(), (TextSpan{4, 3}));
  EXPECT_GE(lineHeight(), before * 3 / 2);
}

TEST_F(MainWindowTest, EdgeIsReportedInPixelsOfTheBaseResolution) {
  ShowWindowed();
  window.PositionControls(200);
  RECT suggested{0, 0, 1200, 900};
  SendMessageW(Handle(), kDpiChanged, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  events.clear();
  const int edge = PlaceOf(Frame()).width - 3;
  Mouse(Frame(), WM_LBUTTONDOWN, {edge, 100}, MK_LBUTTON);
  Mouse(Frame(), WM_MOUSEMOVE, {edge + 100, 100}, MK_LBUTTON);
  Mouse(Frame(), WM_LBUTTONUP, {edge + 100, 100});
  EXPECT_TRUE(Happened("splitter 250"));
}

// ---- Painting.

// Counts what the windows of this thread are told to paint, for as long as it lives.
class PaintCounter {
 public:
  PaintCounter()
      : sent_(SetWindowsHookExW(WH_CALLWNDPROC, OnSent, nullptr, GetCurrentThreadId())),
        fetched_(SetWindowsHookExW(WH_GETMESSAGE, OnFetched, nullptr, GetCurrentThreadId())) {
    counts.clear();
  }
  ~PaintCounter() {
    UnhookWindowsHookEx(sent_);
    UnhookWindowsHookEx(fetched_);
  }
  PaintCounter(const PaintCounter&) = delete;
  PaintCounter& operator=(const PaintCounter&) = delete;

  static int Paints(HWND window) { return counts[{window, WM_PAINT}]; }

 private:
  static LRESULT CALLBACK OnSent(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION) ++counts[{sent.hwnd, sent.message}];
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }
  static LRESULT CALLBACK OnFetched(int code, WPARAM wParam, LPARAM lParam) {
    const auto& fetched = *reinterpret_cast<const MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE) ++counts[{fetched.hwnd, fetched.message}];
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  inline static std::map<std::pair<HWND, UINT>, int> counts;
  HHOOK sent_;
  HHOOK fetched_;
};

TEST_F(MainWindowTest, EverySizePaintsEachPartOnce) {
  const auto box = window.CreateEditBox({});
  box->Load(u"one\ntwo\nthree");
  box->SetVisible(true);
  ShowWindowed();
  window.PositionControls(300);
  loop.Pump();
  const HWND text = Control(ControlId::kText1);
  for (const auto& [width, height] : {std::pair{940, 640}, {760, 520}, {1000, 700}}) {
    const PaintCounter counter;
    Resize(width, height);
    loop.Pump();
    for (const HWND part : {text, Tabs(), Status(), Control(ControlId::kToolbar1), Frame(),
                            Headings(), Macros(), Handle()}) {
      std::array<wchar_t, 100> name{};
      GetClassNameW(part, name.data(), static_cast<int>(name.size()));
      EXPECT_LE(PaintCounter::Paints(part), 1) << Narrow(FromWide(name.data())) << ' ' << width;
    }
    EXPECT_EQ(PaintCounter::Paints(text), 1) << width;
  }
}

TEST_F(MainWindowTest, GroundAndTabStripPaintAroundTheText) {
  const auto box = window.CreateEditBox({});
  box->Load(u"one\ntwo\nthree");
  box->SetVisible(true);
  ShowWindowed();
  const HWND text = Control(ControlId::kText1);
  UpdateWindow(text);
  const std::vector<COLORREF> before = Pixels(text);
  const PaintCounter counter;
  for (const HWND behind : {Handle(), Tabs()}) {
    RedrawWindow(behind, nullptr, nullptr,
                 RDW_ERASE | RDW_INVALIDATE | RDW_NOCHILDREN | RDW_UPDATENOW);
    EXPECT_EQ(Pixels(text), before);
  }
  EXPECT_EQ(PaintCounter::Paints(text), 0);
}

// ---- Place.

TEST_F(MainWindowTest, PlaceIsRestoredToTheTwip) {
  const WindowPlacement place{1500, 900, 13320, 8895, WindowState::kNormal};
  window.Place(place);
  EXPECT_EQ(window.Placement(), place);
  window.Show();
  // The window manager may have a say in between.
  EXPECT_TRUE(WaitFor([&] { return window.Placement() == place; }));
}

TEST_F(MainWindowTest, MaximisedWindowTellsItsNormalPlace) {
  window.Place({1500, 900, 9000, 7500, WindowState::kNormal});
  window.Place({0, 0, 0, 0, WindowState::kMaximised});
  EXPECT_EQ(window.Placement().state, WindowState::kMaximised);
  window.Show();
  loop.Pump();
  EXPECT_TRUE(IsZoomed(Handle()));
  EXPECT_EQ(window.Placement(), (WindowPlacement{1500, 900, 9000, 7500, WindowState::kMaximised}));
}

TEST_F(MainWindowTest, MinimisedWindowTellsItsNormalPlaceAndIsReported) {
  ShowWindowed();
  const WindowPlacement before = window.Placement();
  ShowWindow(Handle(), SW_MINIMIZE);
  loop.Pump();
  EXPECT_TRUE(Happened("minimised"));
  WindowPlacement minimised = window.Placement();
  EXPECT_EQ(minimised.state, WindowState::kMinimised);
  minimised.state = WindowState::kNormal;
  EXPECT_EQ(minimised, before);
  ShowWindow(Handle(), SW_RESTORE);
  loop.Pump();
  EXPECT_TRUE(Happened("not minimised"));
}

TEST_F(MainWindowTest, PlaceOutsideEveryMonitorIsMovedOntoOne) {
  window.Place({-900'000, 400'000, 9000, 6000, WindowState::kNormal});
  const RECT rect = ScreenPlace(Handle());
  EXPECT_NE(MonitorFromRect(&rect, MONITOR_DEFAULTTONULL), nullptr);
  EXPECT_EQ(rect.right - rect.left, 600);
  EXPECT_EQ(rect.left, 0);
}

TEST_F(MainWindowTest, ScreenIsMeasuredInTwips) {
  const auto [width, height] = window.ScreenSize();
  EXPECT_FLOAT_EQ(width, static_cast<float>(GetSystemMetrics(SM_CXSCREEN)) * 15);
  EXPECT_FLOAT_EQ(height, static_cast<float>(GetSystemMetrics(SM_CYSCREEN)) * 15);
}

// ---- Closing.

TEST_F(MainWindowTest, CloseAsksThenUnloadsAndEndsTheLoop) {
  ShowWindowed();
  SendMessageW(Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(events, (std::vector<std::string>{"may it close?", "unload"}));
  EXPECT_FALSE(IsWindowVisible(Handle()));
  EXPECT_TRUE(QuitIsOrdered());
}

TEST_F(MainWindowTest, RefusedCloseKeepsTheWindow) {
  ShowWindowed();
  mayClose = false;
  SendMessageW(Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(events, std::vector<std::string>{"may it close?"});
  EXPECT_TRUE(IsWindowVisible(Handle()));
  EXPECT_FALSE(QuitIsOrdered());
}

TEST_F(MainWindowTest, CloseIsIgnoredWhileABoxWaitsForItsAnswer) {
  ShowWindowed();
  EnableWindow(Handle(), FALSE);
  SendMessageW(Handle(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(events.empty());
  EnableWindow(Handle(), TRUE);
}

TEST_F(MainWindowTest, ClosedWindowUnloadsOnlyOnceAndTakesNoCommands) {
  ShowWindowed();
  SendMessageW(Handle(), WM_CLOSE, 0, 0);
  SendMessageW(Handle(), WM_CLOSE, 0, 0);
  SendMessageW(Handle(), WM_COMMAND, 103, 0);
  EXPECT_EQ(events, (std::vector<std::string>{"may it close?", "unload"}));
}

TEST_F(MainWindowTest, CloseAskedForByTheProgramComesThroughTheQueue) {
  ShowWindowed();
  window.Close();
  EXPECT_TRUE(events.empty());
  loop.Pump();
  EXPECT_TRUE(Happened("unload"));
}

TEST_F(MainWindowTest, EndOfTheSessionAsksTheSameQuestion) {
  ShowWindowed();
  mayClose = false;
  EXPECT_EQ(SendMessageW(Handle(), WM_QUERYENDSESSION, 0, 0), FALSE);
  SendMessageW(Handle(), WM_ENDSESSION, FALSE, 0);
  EXPECT_FALSE(Happened("unload"));
  mayClose = true;
  EXPECT_EQ(SendMessageW(Handle(), WM_QUERYENDSESSION, 0, 0), TRUE);
  EXPECT_FALSE(Happened("unload"));
  SendMessageW(Handle(), WM_ENDSESSION, TRUE, 0);
  EXPECT_TRUE(Happened("unload"));
}

TEST_F(MainWindowTest, SessionDoesNotEndOverAnOpenQuestion) {
  ShowWindowed();
  EnableWindow(Handle(), FALSE);
  EXPECT_EQ(SendMessageW(Handle(), WM_QUERYENDSESSION, 0, 0), FALSE);
  EXPECT_TRUE(events.empty());
  EnableWindow(Handle(), TRUE);
}

// ---- What it reports.

TEST_F(MainWindowTest, TimersOfTheProgramAreReportedByNumber) {
  for (const WPARAM timer : {1, 2, 3}) SendMessageW(Handle(), WM_TIMER, timer, 0);
  EXPECT_EQ(events, (std::vector<std::string>{"timer 1", "timer 2", "timer 3"}));
}

TEST_F(MainWindowTest, FocusOfTheWindowIsPassedOn) {
  ShowWindowed();
  SetFocus(Macros());
  events.clear();
  SetFocus(Handle());
  EXPECT_EQ(events, std::vector<std::string>{"focused"});
}

// Registering a target takes the system as long as loading a few lines; nobody can drop on a text
// that was never in view.
TEST_F(MainWindowTest, TextTakesDropsFromTheMomentItIsShown) {
  const auto takesDrops = [this] {
    return GetPropW(Control(ControlId::kText1), L"OleDropTargetInterface") != nullptr;
  };
  const auto box = window.CreateEditBox({});
  box->Load(u"one");
  EXPECT_FALSE(takesDrops());
  box->SetVisible(true);
  EXPECT_TRUE(takesDrops());
  box->Load(u"another text, in another control");
  EXPECT_TRUE(takesDrops());
  box->SetVisible(false);
  box->SetVisible(true);
  EXPECT_TRUE(takesDrops());
}

TEST_F(MainWindowTest, DroppedFilesAreReportedInTheirOrder) {
  ShowWindowed();
  const std::wstring names = std::wstring(L"C:\\a.tmj") + L'\0' + L"C:\\b c.tmm" + L'\0' + L'\0';
  const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
  auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  drop->fWide = TRUE;
  std::memcpy(drop + 1, names.data(), names.size() * sizeof(wchar_t));
  GlobalUnlock(memory);
  SendMessageW(Handle(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
  EXPECT_EQ(events, (std::vector<std::string>{"dropped C:\\a.tmj", "dropped C:\\b c.tmm"}));
  EXPECT_NE(GetWindowLongPtrW(Handle(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES, 0);
}

TEST_F(MainWindowTest, ClockHasHoursAndMinutesOnly) {
  MSG press{};
  press.hwnd = Handle();
  press.message = WM_KEYDOWN;
  press.wParam = VK_CAPITAL;
  EXPECT_FALSE(window.Watch(press));
  ASSERT_EQ(events.size(), 1U);
  EXPECT_TRUE(std::regex_match(events[0], std::regex("clock \\d{1,2}[:.]\\d\\d( [AP]M)?")))
      << events[0];
}

TEST_F(MainWindowTest, OnlyKeysThatThePanelsShowAskForThem) {
  MSG press{};
  press.message = WM_KEYDOWN;
  press.wParam = 'A';
  window.Watch(press);
  EXPECT_TRUE(events.empty());
}

TEST_F(MainWindowTest, PanelsAreAskedForAFewTimesASecond) {
  ShowWindowed();
  EXPECT_TRUE(WaitFor([&] { return !events.empty() && events[0].starts_with("clock "); }));
}

TEST_F(MainWindowTest, ExceptionOfACommandEndsAtTheWindow) {
  window.events.execute = [](CommandId) { throw std::bad_alloc(); };
  EXPECT_EQ(SendMessageW(Handle(), WM_COMMAND, 101, 0), 0);
  window.events.execute = [this](CommandId) { events.push_back("alive"); };
  SendMessageW(Handle(), WM_COMMAND, 101, 0);
  EXPECT_EQ(events, std::vector<std::string>{"alive"});
}

// What the pointer looks like over the middle of a control, as the system finds out.
HCURSOR PointerOver(HWND control) {
  SetCursor(nullptr);
  SendMessageW(control, WM_SETCURSOR, reinterpret_cast<WPARAM>(control),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  return GetCursor();
}

TEST_F(MainWindowTest, PointerSaysOverEveryControlThatWorkGoesOn) {
  ShowWindowed();
  const std::unique_ptr<EditBox> box = window.CreateEditBox({});
  box->SetVisible(true);
  window.PositionControls(300);
  const HCURSOR working = LoadCursorW(nullptr, IDC_APPSTARTING);
  const HWND controls[] = {Handle(),
                           Tabs(),
                           Status(),
                           Control(ControlId::kToolbar1),
                           Macros(),
                           Headings(),
                           Control(ControlId::kText1)};
  for (HWND control : controls) EXPECT_NE(PointerOver(control), working);
  window.ShowWork(WorkState::kWorking);
  for (HWND control : controls) EXPECT_EQ(PointerOver(control), working);
  window.ShowWork(WorkState::kFailed);
  for (HWND control : controls) EXPECT_NE(PointerOver(control), working);
}

TEST_F(MainWindowTest, PointerChangesAtOnceWhenWorkBeginsAndEnds) {
  ShowWindowed();
  POINT where{300, 300};
  ClientToScreen(Handle(), &where);
  SetCursorPos(where.x, where.y);
  window.ShowWork(WorkState::kWorking);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_APPSTARTING));
  window.ShowWork(WorkState::kNone);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(MainWindowTest, FrameKeepsItsPointersDuringWork) {
  ShowWindowed();
  window.ShowWork(WorkState::kWorking);
  SetCursor(nullptr);
  SendMessageW(Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Handle()),
               MAKELPARAM(HTRIGHT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
}

TEST_F(MainWindowTest, ComingToTheForegroundAndLeavingItAreReported) {
  ShowWindowed();
  SendMessageW(Handle(), WM_ACTIVATEAPP, FALSE, 0);
  SendMessageW(Handle(), WM_ACTIVATEAPP, TRUE, 0);
  EXPECT_EQ(events, (std::vector<std::string>{"not looked at", "looked at"}));
}

}  // namespace
}  // namespace deck
