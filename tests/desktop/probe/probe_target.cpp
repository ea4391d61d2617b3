// A window with one of each control that the probe reads, so that the probe and the harness can be
// proved without the editor. What the user does to it is written to probe_target.ini beside it.
#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include <array>
#include <string>

namespace deck::probe {
namespace {

constexpr int kTabs = 201;
constexpr int kEdit = 202;
constexpr int kStatus = 203;
constexpr int kList = 204;
constexpr int kCombo = 205;
constexpr int kToolbar = 206;
constexpr int kField = 207;
constexpr int kAsk = 208;
constexpr int kNew = 301;
constexpr int kOpen = 302;
constexpr int kSave = 303;
constexpr int kWrap = 304;
constexpr int kAskMenu = 305;
constexpr int kStart = 306;

constexpr const wchar_t* kEditText =
    L"first line\r\nsecond \u00e9\u20ac \u4e2d\r\n\r\nline four \"quoted\" \\ back";

HWND MakeChild(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style, int id,
               RECT at) {
  HWND child = CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, at.left, at.top,
                               at.right - at.left, at.bottom - at.top, parent,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                               GetModuleHandleW(nullptr), nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
  return child;
}

void Record(const wchar_t* key, const std::wstring& value) {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
  std::wstring file = path.data();
  file.replace(file.rfind(L'.'), std::wstring::npos, L".ini");
  WritePrivateProfileStringW(L"Target", key, value.c_str(), file.c_str());
}

void MakeTabs(HWND window) {
  HWND tabs = MakeChild(window, WC_TABCONTROLW, L"", WS_TABSTOP, kTabs, {0, 40, 420, 240});
  std::array<std::wstring, 3> captions{L"Untitled", L"airliner.tmj", L"\u00e9t\u00e9.tmm"};
  for (int i = 0; i < static_cast<int>(captions.size()); ++i) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = captions[static_cast<std::size_t>(i)].data();
    SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
  }
  SendMessageW(tabs, TCM_SETCURSEL, 1, 0);
}

void MakeEdit(HWND window) {
  LoadLibraryW(L"msftedit.dll");
  HWND edit = MakeChild(window, L"RICHEDIT50W", L"",
                        ES_MULTILINE | ES_AUTOHSCROLL | WS_VSCROLL | WS_BORDER | ES_NOHIDESEL,
                        kEdit, {4, 66, 416, 236});
  SetWindowTextW(edit, kEditText);
  CHARRANGE selection{11, 17};
  SendMessageW(edit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection));
}

void MakeStatusBar(HWND window) {
  HWND status = MakeChild(window, STATUSCLASSNAMEW, L"", SBARS_TOOLTIPS, kStatus, {});
  const std::array<int, 8> edges{150, 230, 300, 340, 380, 420, 470, -1};
  SendMessageW(status, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
  for (std::size_t i = 0; i < edges.size(); ++i) {
    const std::wstring text = L"panel " + std::to_wstring(i + 1);
    SendMessageW(status, SB_SETTEXTW, i, reinterpret_cast<LPARAM>(text.c_str()));
  }
  SendMessageW(status, SB_SETTIPTEXTW, 7,
               reinterpret_cast<LPARAM>(L"Contains 3 macros and 2 headings"));
}

void MakeLists(HWND window) {
  HWND list = MakeChild(window, WC_LISTBOXW, L"", LBS_NOTIFY | WS_VSCROLL | WS_BORDER, kList,
                        {430, 40, 560, 130});
  for (const wchar_t* item : {L"Fire", L"Flaps_Up", L"G\u00e9ar", L"Brake"}) {
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
  }
  SendMessageW(list, LB_SETCURSEL, 2, 0);
  HWND combo = MakeChild(window, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST, kCombo, {430, 140, 560, 300});
  for (const wchar_t* item : {L"All", L"Weapons"}) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
  }
  SendMessageW(combo, CB_SETCURSEL, 1, 0);
  MakeChild(window, WC_EDITW, L"plain field", WS_BORDER | ES_AUTOHSCROLL, kField,
            {430, 170, 560, 192});
  MakeChild(window, WC_BUTTONW, L"&Ask", BS_PUSHBUTTON, kAsk, {430, 200, 500, 225});
}

void MakeToolbar(HWND window) {
  HWND bar = MakeChild(window, TOOLBARCLASSNAMEW, L"", TBSTYLE_TOOLTIPS, kToolbar, {});
  SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SendMessageW(bar, TB_LOADIMAGES, IDB_STD_SMALL_COLOR, reinterpret_cast<LPARAM>(HINST_COMMCTRL));
  std::array<TBBUTTON, 4> buttons{};
  buttons[0] = {STD_FILENEW, kNew, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0};
  buttons[1].fsStyle = BTNS_SEP;
  buttons[2] = {STD_FILEOPEN, kOpen, 0, BTNS_BUTTON, {}, 0, 0};
  buttons[3] = {STD_FILESAVE, kSave, TBSTATE_ENABLED | TBSTATE_CHECKED, BTNS_CHECK, {}, 0, 0};
  SendMessageW(bar, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
}

HMENU MakeMenu() {
  HMENU more = CreatePopupMenu();
  AppendMenuW(more, MF_STRING | MF_CHECKED, kWrap, L"&Wrap\tCtrl+W");
  HMENU file = CreatePopupMenu();
  AppendMenuW(file, MF_STRING, kNew, L"&New");
  AppendMenuW(file, MF_STRING | MF_GRAYED, kOpen, L"&Open ...\tCtrl+O");
  AppendMenuW(file, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(file, MF_STRING, kAskMenu, L"&Ask");
  AppendMenuW(file, MF_STRING, kStart, L"&Start another");
  AppendMenuW(file, MF_POPUP, reinterpret_cast<UINT_PTR>(more), L"&More");
  HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&File");
  return bar;
}

void Ask(HWND window) {
  const int answer = MessageBoxW(window, L"Save the \u00e9 file?\n\nIt was changed.", L"Question",
                                 MB_YESNOCANCEL | MB_ICONQUESTION);
  Record(L"Answer", std::to_wstring(answer));
}

void StartAnother() {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
  std::wstring commandLine = L"\"" + std::wstring(path.data()) + L"\" another";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &process) != 0) {
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
}

void OnCommand(HWND window, WPARAM wParam) {
  switch (LOWORD(wParam)) {
    case kAsk:
    case kAskMenu:
      Ask(window);
      break;
    case kStart:
      StartAnother();
      break;
    case kNew:
      Record(L"Command", L"New");
      break;
    case kList:
      if (HIWORD(wParam) == LBN_DBLCLK) {
        Record(L"DoubleClicked",
               std::to_wstring(SendMessageW(GetDlgItem(window, kList), LB_GETCURSEL, 0, 0)));
      }
      break;
    default:
      break;
  }
}

void OnContextMenu(HWND window) {
  HMENU menu = CreatePopupMenu();
  AppendMenuW(menu, MF_STRING, kNew, L"New from here");
  POINT at{};
  GetCursorPos(&at);
  TrackPopupMenu(menu, TPM_LEFTALIGN, at.x, at.y, 0, window, nullptr);
  DestroyMenu(menu);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      MakeToolbar(window);
      MakeTabs(window);
      MakeEdit(window);
      SetWindowPos(GetDlgItem(window, kEdit), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
      MakeStatusBar(window);
      MakeLists(window);
      return 0;
    case WM_SETFOCUS:
      SetFocus(GetDlgItem(window, kEdit));
      return 0;
    case WM_COMMAND:
      OnCommand(window, wParam);
      return 0;
    case WM_CONTEXTMENU:
      OnContextMenu(window);
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

int Run(HINSTANCE instance, const wchar_t* commandLine) {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  WNDCLASSW kind{};
  kind.lpfnWndProc = WindowProcedure;
  kind.hInstance = instance;
  kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.lpszClassName = L"ProbeTarget";
  RegisterClassW(&kind);
  const std::wstring title = L"Probe target \u00e9 " + std::wstring(commandLine);
  HWND window =
      CreateWindowExW(0, kind.lpszClassName, title.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60,
                      60, 600, 340, nullptr, MakeMenu(), instance, nullptr);
  if (window == nullptr) return 1;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace
}  // namespace deck::probe

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR cmdLine, int) {
  return deck::probe::Run(instance, cmdLine);
}
