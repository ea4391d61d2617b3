#include "documents/win32/rich_edit_control.h"

#include <richedit.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "platform/strings.h"
#include "platform/win32/fonts.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr UINT kUnicode = 1200;  // code page number of UTF-16
constexpr LPARAM kNoLimit = 0x7FFFFFFE;
constexpr DWORD kStyle = WS_CHILD | WS_HSCROLL | WS_VSCROLL | ES_MULTILINE | ES_NOHIDESEL |
                         ES_WANTRETURN | ES_AUTOHSCROLL | ES_AUTOVSCROLL;

template <class T>
LPARAM Address(T& value) {
  return reinterpret_cast<LPARAM>(&value);
}

// From the system's own folder only: a library of that name beside a document must not be loaded.
bool LoadSystemLibrary(const wchar_t* name) {
  std::array<wchar_t, MAX_PATH> folder{};
  const UINT length = GetSystemDirectoryW(folder.data(), MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return false;
  const std::wstring path = std::wstring(folder.data()) + L"\\" + name;
  return LoadLibraryW(path.c_str()) != nullptr;
}

// Null when there is none. Libraries stay loaded for the life of the program.
const wchar_t* ControlClass() {
  static const wchar_t* const name = LoadSystemLibrary(L"msftedit.dll")   ? L"RICHEDIT50W"
                                     : LoadSystemLibrary(L"riched20.dll") ? L"RichEdit20W"
                                                                          : nullptr;
  return name;
}

struct Source {
  const char16_t* next;
  std::size_t left;
};

DWORD CALLBACK GiveChunk(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* given) {
  Source& source = *reinterpret_cast<Source*>(cookie);
  const std::size_t units =
      std::min(source.left, static_cast<std::size_t>(size) / sizeof(char16_t));
  std::memcpy(buffer, source.next, units * sizeof(char16_t));
  source.next += units;
  source.left -= units;
  *given = static_cast<LONG>(units * sizeof(char16_t));
  return 0;
}

}  // namespace

HWND CreateRichEdit(HWND parent, int controlId, const RECT& place, HFONT font) {
  const wchar_t* const className = ControlClass();
  if (className == nullptr) return nullptr;
  const HWND control = CreateWindowExW(
      WS_EX_CLIENTEDGE, className, L"", kStyle, place.left, place.top, place.right - place.left,
      place.bottom - place.top, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)),
      GetModuleHandleW(nullptr), nullptr);
  if (control == nullptr) return nullptr;
  // The tab strip is a sibling that fills the same place.
  SetWindowPos(control, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  SendMessageW(control, EM_SETTEXTMODE, TM_PLAINTEXT, 0);
  SendMessageW(control, EM_EXLIMITTEXT, 0, kNoLimit);
  SendMessageW(control, EM_SETUNDOLIMIT, 0, 0);
  SendMessageW(control, EM_SETEVENTMASK, 0, ENM_CHANGE);
  // Before there is text: afterwards it costs as much as loading the text again.
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
  return control;
}

void PrepareForLines(HWND control, int lines) {
  RECT client{};
  GetClientRect(control, &client);
  const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
  const int height = TextMeasure(control, font).LineHeight();
  // Twice as many, so that no difference in how lines are measured matters.
  if (lines * height > 2 * client.bottom) ShowScrollBar(control, SB_VERT, TRUE);
}

void StreamIntoControl(HWND control, const std::u16string& text) {
  // With CR alone for a paragraph no chunk can cut a CR LF in two, which would give an empty line.
  const std::u16string paragraphs = ReplaceAll(text, u'\n', u'\r');
  Source source{paragraphs.data(), paragraphs.size()};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, GiveChunk};
  SendMessageW(control, EM_STREAMIN, SF_TEXT | SF_UNICODE, Address(stream));
}

std::u16string ControlText(HWND control) {
  std::u16string text(static_cast<std::size_t>(ControlLength(control)) + 1, u'\0');
  GETTEXTEX request{};
  request.cb = static_cast<DWORD>(text.size() * sizeof(char16_t));
  request.flags = GT_DEFAULT;
  request.codepage = kUnicode;
  const LRESULT length = SendMessageW(control, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&request),
                                      reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(length, 0)));
  std::replace(text.begin(), text.end(), u'\r', u'\n');
  return text;
}

int ControlLength(HWND control) {
  GETTEXTLENGTHEX request{GTL_DEFAULT | GTL_NUMCHARS | GTL_PRECISE, kUnicode};
  const LRESULT length =
      SendMessageW(control, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&request), 0);
  return static_cast<int>(std::max<LRESULT>(length, 0));
}

TextSpan ControlSelection(HWND control) {
  CHARRANGE range{};
  SendMessageW(control, EM_EXGETSEL, 0, Address(range));
  // Select all counts a paragraph mark behind the end that the text does not have.
  const LONG length = ControlLength(control);
  const LONG start = std::clamp<LONG>(range.cpMin, 0, length);
  return {start, std::clamp<LONG>(range.cpMax, start, length) - start};
}

void SelectInControl(HWND control, TextSpan span) {
  CHARRANGE range{span.start, span.end()};
  CHARRANGE present{};
  SendMessageW(control, EM_EXGETSEL, 0, Address(present));
  if (present.cpMin == range.cpMin && present.cpMax == range.cpMax) return;
  SendMessageW(control, EM_EXSETSEL, 0, Address(range));
}

void ReplaceInControl(HWND control, std::u16string text) {
  std::replace(text.begin(), text.end(), u'\n', u'\r');
  SendMessageW(control, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Wide(text)));
}

int PositionAt(HWND control, POINT point) {
  POINTL place{point.x, point.y};
  const LRESULT position = SendMessageW(control, EM_CHARFROMPOS, 0, Address(place));
  return std::clamp(static_cast<int>(position), 0, ControlLength(control));
}

POINT PointOf(HWND control, int position) {
  POINTL point{};
  SendMessageW(control, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), position);
  return {point.x, point.y};
}

ControlView ViewOf(HWND control) {
  const LRESULT topLine = SendMessageW(control, EM_GETFIRSTVISIBLELINE, 0, 0);
  const LRESULT topPosition = SendMessageW(control, EM_LINEINDEX, static_cast<WPARAM>(topLine), 0);
  POINT scrolled{};
  SendMessageW(control, EM_GETSCROLLPOS, 0, Address(scrolled));
  return {std::max(static_cast<int>(topPosition), 0), scrolled.x};
}

void ShowView(HWND control, const ControlView& view) {
  const LRESULT topLine = SendMessageW(control, EM_GETFIRSTVISIBLELINE, 0, 0);
  const LRESULT line = SendMessageW(control, EM_EXLINEFROMCHAR, 0, view.topPosition);
  if (line != topLine) SendMessageW(control, EM_LINESCROLL, 0, line - topLine);
  POINT scrolled{};
  SendMessageW(control, EM_GETSCROLLPOS, 0, Address(scrolled));
  if (scrolled.x == view.left) return;
  scrolled.x = view.left;
  SendMessageW(control, EM_SETSCROLLPOS, 0, Address(scrolled));
}

}  // namespace deck
