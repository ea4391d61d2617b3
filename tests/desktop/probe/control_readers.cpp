#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/desktop/probe/json_parts.h"
#include "tests/desktop/probe/readers.h"
#include "tests/desktop/probe/remote.h"

namespace deck::probe {
namespace {

// Room for a structure and, behind it, for the text that it points to.
constexpr std::size_t kTextOffset = 256;
constexpr std::size_t kTextUnits = 2048;
constexpr std::size_t kRoom = kTextOffset + kTextUnits * sizeof(wchar_t);

constexpr int kUnicodeCodePage = 1200;

RECT OnScreen(HWND window, RECT rect) {
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

// The text of a list or combo item; these messages are carried across by the system itself.
std::wstring ItemText(HWND window, UINT lengthMessage, UINT textMessage, int index) {
  const LRESULT length = Ask(window, lengthMessage, static_cast<WPARAM>(index));
  if (length <= 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const LRESULT got =
      Ask(window, textMessage, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(got, 0)));
  return text;
}

bool IsRichEdit(HWND edit) {
  std::wstring name(64, L'\0');
  name.resize(static_cast<std::size_t>(GetClassNameW(edit, name.data(), 64)));
  return name.size() > 4 && CompareStringOrdinal(name.c_str(), 4, L"RICH", 4, TRUE) == CSTR_EQUAL;
}

// With one unit for a line break, so that positions in it are the control's positions.
std::wstring RichText(HWND edit) {
  constexpr std::size_t kSettings = 64;
  RemoteMemory asked(edit, kSettings);
  asked.Put(GETTEXTLENGTHEX{GTL_DEFAULT, kUnicodeCodePage});
  const LRESULT length = Ask(edit, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(asked.address()));
  const std::size_t units = static_cast<std::size_t>(length) + 1;
  RemoteMemory memory(edit, kSettings + units * sizeof(wchar_t));
  memory.Put(GETTEXTEX{static_cast<DWORD>(units * sizeof(wchar_t)), GT_DEFAULT, kUnicodeCodePage,
                       nullptr, nullptr});
  const LRESULT got = Ask(edit, EM_GETTEXTEX, reinterpret_cast<WPARAM>(memory.address()),
                          memory.Parameter(kSettings));
  std::wstring text(static_cast<std::size_t>(got), L'\0');
  memory.Read(text.data(), text.size() * sizeof(wchar_t), kSettings);
  std::replace(text.begin(), text.end(), L'\r', L'\n');
  return text;
}

CHARRANGE RichSelection(HWND edit) {
  RemoteMemory memory(edit, sizeof(CHARRANGE));
  Ask(edit, EM_EXGETSEL, 0, memory.Parameter());
  return memory.Get<CHARRANGE>();
}

// Positions count the two units of a plain edit box's line break as they stand in its text.
std::wstring PlainText(HWND edit) {
  std::wstring text(static_cast<std::size_t>(Ask(edit, WM_GETTEXTLENGTH)) + 1, L'\0');
  const LRESULT got = Ask(edit, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(got));
  return text;
}

CHARRANGE PlainSelection(HWND edit) {
  DWORD start = 0;
  DWORD end = 0;
  Ask(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  return {static_cast<LONG>(start), static_cast<LONG>(end)};
}

void WritePanel(HWND status, int index, RemoteMemory& memory, JsonWriter& json) {
  const auto part = static_cast<WPARAM>(index);
  const LRESULT kind = Ask(status, SB_GETTEXTLENGTHW, part);
  std::wstring text;
  // A panel that its owner draws holds a value, not a text.
  if ((HIWORD(kind) & SBT_OWNERDRAW) == 0 && LOWORD(kind) < kTextUnits) {
    Ask(status, SB_GETTEXTW, part, memory.Parameter());
    text = memory.Text(LOWORD(kind));
  }
  memory.Put(L'\0');
  Ask(status, SB_GETTIPTEXTW, MAKEWPARAM(index, kTextUnits - 1), memory.Parameter());
  const std::wstring tip = memory.Text(kTextUnits - 1);
  Ask(status, SB_GETRECT, part, memory.Parameter());
  json.BeginObject();
  json.Key("text").Text(text);
  json.Key("tip").Text(tip);
  WriteRect("rect", OnScreen(status, memory.Get<RECT>()), json);
  json.EndObject();
}

std::wstring TabCaption(HWND tabs, int index, RemoteMemory& memory) {
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = reinterpret_cast<wchar_t*>(memory.Parameter(kTextOffset));
  item.cchTextMax = static_cast<int>(kTextUnits);
  memory.Put(item);
  Ask(tabs, TCM_GETITEMW, static_cast<WPARAM>(index), memory.Parameter());
  return memory.Text(kTextUnits, kTextOffset);
}

bool TakesSeveral(HWND list) {
  return (GetWindowLongW(list, GWL_STYLE) & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

void WriteListSelection(HWND list, int count, JsonWriter& json) {
  json.Key("selected").BeginArray();
  if (TakesSeveral(list)) {
    for (int i = 0; i < count; ++i) {
      if (Ask(list, LB_GETSEL, static_cast<WPARAM>(i)) > 0) json.Number(i);
    }
  } else if (const LRESULT selected = Ask(list, LB_GETCURSEL); selected >= 0) {
    json.Number(selected);
  }
  json.EndArray();
}

}  // namespace

void ReadStatusBar(HWND status, JsonWriter& json) {
  RemoteMemory memory(status, kRoom);
  const auto parts = static_cast<int>(Ask(status, SB_GETPARTS));
  json.BeginArray();
  for (int i = 0; i < parts; ++i) WritePanel(status, i, memory, json);
  json.EndArray();
}

void ReadTabs(HWND tabs, JsonWriter& json) {
  RemoteMemory memory(tabs, kRoom);
  const auto count = static_cast<int>(Ask(tabs, TCM_GETITEMCOUNT));
  json.BeginObject().Key("items").BeginArray();
  for (int i = 0; i < count; ++i) {
    json.BeginObject().Key("caption").Text(TabCaption(tabs, i, memory));
    Ask(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(i), memory.Parameter());
    WriteRect("rect", OnScreen(tabs, memory.Get<RECT>()), json);
    json.EndObject();
  }
  json.EndArray().Key("selected").Number(Ask(tabs, TCM_GETCURSEL)).EndObject();
}

void ReadList(HWND list, JsonWriter& json) {
  const auto count = static_cast<int>(Ask(list, LB_GETCOUNT));
  json.BeginObject().Key("items").BeginArray();
  for (int i = 0; i < count; ++i) json.Text(ItemText(list, LB_GETTEXTLEN, LB_GETTEXT, i));
  json.EndArray();
  WriteListSelection(list, count, json);
  json.EndObject();
}

void ReadListView(HWND list, JsonWriter& json) {
  const auto count = static_cast<int>(Ask(list, LB_GETCOUNT));
  const auto top = static_cast<int>(Ask(list, LB_GETTOPINDEX));
  RECT client{};
  GetClientRect(list, &client);
  json.BeginObject().Key("top").Number(top).Key("rects").BeginArray();
  for (int i = top; i < count; ++i) {
    RECT rect{};
    Ask(list, LB_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&rect));
    if (rect.bottom > client.bottom) break;
    WriteRectValue(OnScreen(list, rect), json);
  }
  json.EndArray().EndObject();
}

void ReadCombo(HWND combo, JsonWriter& json) {
  const auto count = static_cast<int>(Ask(combo, CB_GETCOUNT));
  json.BeginObject().Key("items").BeginArray();
  for (int i = 0; i < count; ++i) json.Text(ItemText(combo, CB_GETLBTEXTLEN, CB_GETLBTEXT, i));
  json.EndArray();
  json.Key("selected").Number(Ask(combo, CB_GETCURSEL));
  json.Key("text").Text(PlainText(combo));
  json.Key("dropped").Flag(Ask(combo, CB_GETDROPPEDSTATE) != 0);
  json.EndObject();
}

void ReadEdit(HWND edit, JsonWriter& json) {
  const bool rich = IsRichEdit(edit);
  const CHARRANGE selection = rich ? RichSelection(edit) : PlainSelection(edit);
  json.BeginObject();
  json.Key("text").Text(rich ? RichText(edit) : PlainText(edit));
  json.Key("selection").BeginArray().Number(selection.cpMin).Number(selection.cpMax).EndArray();
  json.Key("firstVisibleLine").Number(Ask(edit, EM_GETFIRSTVISIBLELINE));
  json.Key("lines").Number(Ask(edit, EM_GETLINECOUNT));
  json.Key("modified").Flag(Ask(edit, EM_GETMODIFY) != 0);
  json.Key("readOnly").Flag((GetWindowLongW(edit, GWL_STYLE) & ES_READONLY) != 0);
  json.EndObject();
}

void ReadCharacterPoint(HWND edit, int position, JsonWriter& json) {
  RemoteMemory memory(edit, sizeof(POINTL));
  Ask(edit, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(memory.address()), position);
  const auto inside = memory.Get<POINTL>();
  POINT point{inside.x, inside.y};
  ClientToScreen(edit, &point);
  json.BeginArray().Number(point.x).Number(point.y).EndArray();
}

void ReadToolbar(HWND toolbar, JsonWriter& json) {
  RemoteMemory memory(toolbar, kRoom);
  const auto count = static_cast<int>(Ask(toolbar, TB_BUTTONCOUNT));
  json.BeginArray();
  for (int i = 0; i < count; ++i) {
    Ask(toolbar, TB_GETBUTTON, static_cast<WPARAM>(i), memory.Parameter());
    const auto button = memory.Get<TBBUTTON>();
    Ask(toolbar, TB_GETITEMRECT, static_cast<WPARAM>(i), memory.Parameter());
    json.BeginObject().Key("id").Number(button.idCommand);
    json.Key("separator").Flag((button.fsStyle & BTNS_SEP) != 0);
    json.Key("enabled").Flag((button.fsState & TBSTATE_ENABLED) != 0);
    json.Key("checked").Flag((button.fsState & TBSTATE_CHECKED) != 0);
    json.Key("hidden").Flag((button.fsState & TBSTATE_HIDDEN) != 0);
    WriteRect("rect", OnScreen(toolbar, memory.Get<RECT>()), json);
    json.EndObject();
  }
  json.EndArray();
}

}  // namespace deck::probe
