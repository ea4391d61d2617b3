#include <array>
#include <string>
#include <vector>

#include "tests/desktop/probe/json_parts.h"
#include "tests/desktop/probe/readers.h"
#include "tests/desktop/probe/remote.h"

namespace deck::probe {
namespace {

constexpr std::size_t kShownText = 4000;  // enough for any message box

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

// The title as the system keeps it, without asking the window's process.
std::wstring TitleOf(HWND window) {
  std::array<wchar_t, 1024> title{};
  GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
  return title.data();
}

std::wstring TextOf(HWND window) {
  const LRESULT length = Ask(window, WM_GETTEXTLENGTH);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const LRESULT got = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(got));
  return text;
}

std::wstring ProgramOf(DWORD processId) {
  HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId);
  if (process == nullptr) return {};
  std::array<wchar_t, 1024> path{};
  auto size = static_cast<DWORD>(path.size());
  QueryFullProcessImageNameW(process, 0, path.data(), &size);
  CloseHandle(process);
  return path.data();
}

void WriteWindow(HWND window, JsonWriter& json) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  RECT rect{};
  GetWindowRect(window, &rect);
  json.BeginObject();
  WriteHandle("handle", window, json);
  json.Key("class").Text(ClassOf(window));
  json.Key("title").Text(TitleOf(window));
  json.Key("visible").Flag(IsWindowVisible(window) != 0);
  json.Key("enabled").Flag(IsWindowEnabled(window) != 0);
  json.Key("minimised").Flag(IsIconic(window) != 0);
  json.Key("maximised").Flag(IsZoomed(window) != 0);
  WriteRect("rect", rect, json);
  WriteHandle("owner", GetWindow(window, GW_OWNER), json);
  json.Key("pid").Number(processId);
  json.Key("program").Text(ProgramOf(processId));
  json.EndObject();
}

bool IsChecked(HWND window) {
  return ClassOf(window) == L"Button" && Ask(window, BM_GETCHECK) == BST_CHECKED;
}

void WriteChild(HWND window, JsonWriter& json) {
  RECT rect{};
  GetWindowRect(window, &rect);
  json.BeginObject();
  WriteHandle("handle", window, json);
  WriteHandle("parent", GetAncestor(window, GA_PARENT), json);
  json.Key("class").Text(ClassOf(window));
  json.Key("id").Number(GetDlgCtrlID(window));
  json.Key("text").Text(TextOf(window).substr(0, kShownText));
  json.Key("visible").Flag(IsWindowVisible(window) != 0);
  json.Key("enabled").Flag(IsWindowEnabled(window) != 0);
  json.Key("checked").Flag(IsChecked(window));
  WriteRect("rect", rect, json);
  json.EndObject();
}

// Exceptions must not pass through the system's own frames, so the list is made first.
BOOL CALLBACK Remember(HWND window, LPARAM list) noexcept {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

}  // namespace

void ReadWindows(JsonWriter& json) {
  std::vector<HWND> windows;
  EnumWindows(Remember, reinterpret_cast<LPARAM>(&windows));
  json.BeginArray();
  for (HWND window : windows) WriteWindow(window, json);
  json.EndArray();
}

void ReadFocus(JsonWriter& json) {
  HWND foreground = GetForegroundWindow();
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  if (foreground != nullptr) {
    GetGUIThreadInfo(GetWindowThreadProcessId(foreground, nullptr), &thread);
  }
  json.BeginObject();
  WriteHandle("foreground", foreground, json);
  WriteHandle("focus", thread.hwndFocus, json);
  WriteHandle("capture", thread.hwndCapture, json);
  json.Key("inMenu").Flag((thread.flags & GUI_INMENUMODE) != 0);
  json.EndObject();
}

void ReadChildren(HWND window, JsonWriter& json) {
  std::vector<HWND> children;
  EnumChildWindows(window, Remember, reinterpret_cast<LPARAM>(&children));
  json.BeginArray();
  for (HWND child : children) WriteChild(child, json);
  json.EndArray();
}

void ReadText(HWND window, JsonWriter& json) {
  json.Text(TextOf(window));
}

}  // namespace deck::probe
