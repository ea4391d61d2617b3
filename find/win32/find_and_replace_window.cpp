#include "find/win32/find_and_replace_window.h"

#include <commctrl.h>

#include <cstring>
#include <string_view>
#include <utility>

#include "documents/layout.h"
#include "find/move_aside.h"
#include "find/win32/selection_on_screen.h"
#include "platform/twips.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/owned_window.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/procedure_border.h"
#include "platform/win32/subclass.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/window_class.h"
#include "platform/win32/window_place.h"

namespace deck {
namespace {

constexpr const wchar_t* kClassName = L"FindAndReplace";
constexpr int kTabPadding = 7;        // pixels at 96 dpi, on each side of a caption
constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, which Windows 7 does not send
constexpr int kPages = static_cast<int>(std::size(kFindPageTitles));
constexpr int kListUnits = 90;  // height of an open list in dialog units

// A dialog without controls: they are made one by one, for the resolution that the window has then.
std::vector<WORD> DialogTemplate() {
  DLGTEMPLATE head{};
  head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | DS_MODALFRAME;
  std::vector<WORD> words(sizeof head / sizeof(WORD));
  std::memcpy(words.data(), &head, sizeof head);
  const auto append = [&words](std::wstring_view text) {
    words.insert(words.end(), text.begin(), text.end());
    words.push_back(0);
  };
  append({});  // no menu
  append(kClassName);
  append(Wide(std::u16string(kFindDialogTitle)));
  return words;
}

// The system would scale the controls by itself, which know their places for every resolution.
void ScaleByOurselves(HWND dialog) {
  constexpr int kDisableAll = 1;
  using Function = BOOL WINAPI(HWND, int mask, int values);
  static auto* const set = reinterpret_cast<Function*>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior")));
  if (set != nullptr) set(dialog, kDisableAll, kDisableAll);
}

LetterSize SizeOfLetters(HWND window, HFONT font) {
  const TextMeasure measure(window, font);
  const std::u16string letters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const int count = static_cast<int>(letters.size());
  return {(measure.Width(letters) + count / 2) / count, measure.LineHeight()};
}

}  // namespace

// ---- The dialog.

void FindAndReplaceWindow::Open(FindPage page) {
  if (!IsOpen()) Create();
  ShowPage(page);
  ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window_);
}

void FindAndReplaceWindow::Create() {
  RegisterWindowClass({.name = kClassName, .procedure = DefDlgProcW, .extraBytes = DLGWINDOWEXTRA});
  const std::vector<WORD> description = DialogTemplate();
  CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                             reinterpret_cast<const DLGTEMPLATE*>(description.data()), owner_,
                             Procedure, reinterpret_cast<LPARAM>(this));
}

void FindAndReplaceWindow::Close() {
  if (!IsOpen()) return;
  if (!IsIconic(window_)) {
    const Rectangle place = PlaceOf(window_);
    lastPlace_ = POINT{place.left, place.top};
  }
  DestroyWindow(window_);
}

void FindAndReplaceWindow::Minimise() {
  if (IsOpen()) MinimiseOwned(window_);
}

void FindAndReplaceWindow::CreateParts() {
  dpi_ = DpiOf(window_);
  enabled_.clear();
  parts_.clear();
  for (const FindPart& part : kFindParts) parts_.push_back({&part, CreatePart(part)});
  const HWND tabs = Control(FindControl::kSSTab1);
  for (int page = 0; page < kPages; ++page) {
    std::u16string title(kFindPageTitles[page]);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = MutableWide(title);
    SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&item));
  }
  Subclass<&FindAndReplaceWindow::OnTabsMessage>(tabs, this);
  SetAccessibleName(tabs, L"Pages");
  SetLooks();
  SizeToContents();
  LayOut();
  PutOverOwner();
}

HWND FindAndReplaceWindow::CreatePart(const FindPart& part) {
  const wchar_t* name = WC_BUTTONW;
  DWORD style = WS_CHILD | WS_TABSTOP;
  DWORD extendedStyle = 0;
  switch (part.kind) {
    case FindPartKind::kLabel:
      name = WC_STATICW;
      style = WS_CHILD;
      break;
    case FindPartKind::kCombo:
      name = WC_COMBOBOXW;
      style |= CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL;
      break;
    case FindPartKind::kField:
      name = WC_EDITW;
      style |= ES_AUTOHSCROLL;
      extendedStyle = WS_EX_CLIENTEDGE;
      break;
    case FindPartKind::kTick:
      style |= BS_AUTOCHECKBOX;
      break;
    case FindPartKind::kButton:
      style |= BS_PUSHBUTTON;
      break;
    case FindPartKind::kTabs:
      name = WC_TABCONTROLW;
      style |= WS_VISIBLE | WS_CLIPSIBLINGS;
      break;
  }
  const std::u16string caption(part.caption);
  const HWND window =
      CreateWindowExW(extendedStyle, name, Wide(caption), style, 0, 0, 0, 0, window_,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(part.control)),
                      GetModuleHandleW(nullptr), nullptr);
  if (part.kind == FindPartKind::kCombo) SendMessageW(window, CB_LIMITTEXT, 0, 0);
  if (part.kind == FindPartKind::kField) SendMessageW(window, EM_SETLIMITTEXT, 0, 0);
  return window;
}

void FindAndReplaceWindow::SetLooks() {
  FontHandle font = MakeFont(MessageFont(dpi_));
  for (const Part& part : parts_) {
    SendMessageW(part.window, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
  }
  // The control's own room beside the captions does not grow with the resolution.
  SendMessageW(Control(FindControl::kSSTab1), TCM_SETPADDING, 0,
               MAKELPARAM(ScaleToDpi(kTabPadding, dpi_), ScaleToDpi(3, dpi_)));
  letter_ = SizeOfLetters(window_, font.Get());
  font_ = std::move(font);
  icons_.Set(window_, dpi_);
}

void FindAndReplaceWindow::LayOut() {
  for (const Part& part : parts_) {
    Rectangle units = part.description->place;
    // The height of a combo box is that of its open list.
    if (part.description->kind == FindPartKind::kCombo) units.height = kListUnits;
    MoveTo(part.window, InPixels(units, letter_));
  }
  background_.Forget();
  InvalidateRect(window_, nullptr, TRUE);
}

// The frame's size is asked for, as it follows the resolution by rules of the system's own.
void FindAndReplaceWindow::SizeToContents() {
  const Rectangle wanted = InPixels(kFindDialogClient, letter_);
  RECT client{};
  GetClientRect(window_, &client);
  const Rectangle now = PlaceOf(window_);
  SetWindowPos(window_, nullptr, 0, 0, now.width + wanted.width - client.right,
               now.height + wanted.height - client.bottom,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FindAndReplaceWindow::PutOverOwner() {
  const Rectangle owner = PlaceOf(owner_);
  Rectangle place = PlaceOf(window_);
  place.left = owner.left + (owner.width - place.width) / 2;
  place.top = owner.top + (owner.height - place.height) / 2;
  if (lastPlace_) {
    place.left = lastPlace_->x;
    place.top = lastPlace_->y;
  }
  MoveTo(window_, MovedInto(place, WorkAreaAt(place)));
}

void FindAndReplaceWindow::ShowPage(FindPage page) {
  page_ = page;
  SendMessageW(Control(FindControl::kSSTab1), TCM_SETCURSEL, static_cast<WPARAM>(page), 0);
  for (const Part& part : parts_) {
    if (!part.description->page) continue;
    const bool shown = part.description->page == page;
    const auto told = enabled_.find(part.description->control);
    // The mnemonics of controls that are only hidden would still work.
    EnableWindow(part.window, shown && (told == enabled_.end() || told->second));
    ShowWindow(part.window, shown ? SW_SHOWNA : SW_HIDE);
  }
}

void FindAndReplaceWindow::ChoosePage(FindPage page) {
  ShowPage(page);
  if (events_.pageChosen) events_.pageChosen(page);
}

// ---- Controls.

HWND FindAndReplaceWindow::Control(FindControl control) const {
  return window_ == nullptr ? nullptr : GetDlgItem(window_, static_cast<int>(control));
}

std::u16string FindAndReplaceWindow::Text(FindControl control) const {
  const HWND window = Control(control);
  if (window == nullptr) return {};
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  return FromWide({text.data(), static_cast<std::size_t>(length)});
}

void FindAndReplaceWindow::SetText(FindControl control, const std::u16string& text) {
  if (const HWND window = Control(control)) SetWindowTextW(window, Wide(text));
}

void FindAndReplaceWindow::AddToList(FindControl combo, const std::u16string& text) {
  SendMessageW(Control(combo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
}

bool FindAndReplaceWindow::IsTicked(FindControl box) const {
  return SendMessageW(Control(box), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void FindAndReplaceWindow::SetTicked(FindControl box, bool ticked) {
  SendMessageW(Control(box), BM_SETCHECK, ticked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void FindAndReplaceWindow::SetEnabled(FindControl button, bool enabled) {
  if (!IsOpen()) return;
  enabled_[button] = enabled;
  ShowPage(page_);
}

void FindAndReplaceWindow::SetDefaultButton(FindControl button) {
  if (IsOpen()) SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(button), 0);
}

void FindAndReplaceWindow::Focus(FindControl control) {
  const HWND window = Control(control);
  if (window == nullptr || IsIconic(window_) || !IsWindowVisible(window) ||
      !IsWindowEnabled(window)) {
    return;
  }
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
  SendMessageW(window, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

void FindAndReplaceWindow::KeepClearOfSelection() {
  if (!IsOpen() || IsIconic(window_)) return;
  const std::optional<Rectangle> selection = SelectionOnScreen();
  if (!selection) return;
  const Rectangle place = PlaceOf(window_);
  const Rectangle moved = MoveAside(place, *selection, WorkAreaAt(place));
  if (moved != place) MoveTo(window_, moved);
}

void FindAndReplaceWindow::Tell(const Message& message) {
  const bool hasPlace = IsOpen() && !IsIconic(window_);
  // The system keeps only the box's owner from being used.
  const bool ownerWasEnabled = hasPlace && !EnableWindow(owner_, FALSE);
  MessageBoxW(hasPlace ? window_ : owner_, Wide(message.text), Wide(message.title),
              static_cast<UINT>(message.style));
  if (ownerWasEnabled) EnableWindow(owner_, TRUE);
}

// ---- What the user does.

bool FindAndReplaceWindow::TakeKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || window_ == nullptr) return false;
  if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
  const bool control = GetKeyState(VK_CONTROL) < 0;
  switch (message.wParam) {
    case VK_ESCAPE:
      Clicked(FindControl::kCommand9);
      return true;
    case VK_F3:
      if (events_.findAgain) events_.findAgain();
      return true;
    case VK_TAB:
      return control && OnTurnPage(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
    case VK_NEXT:
      return control && OnTurnPage(1);
    case VK_PRIOR:
      return control && OnTurnPage(-1);
    default:
      return false;
  }
}

bool FindAndReplaceWindow::OnTurnPage(int direction) {
  const int page = (static_cast<int>(page_) + kPages + direction) % kPages;
  ChoosePage(static_cast<FindPage>(page));
  const HWND first = GetNextDlgTabItem(window_, Control(FindControl::kSSTab1), FALSE);
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
  return true;
}

void FindAndReplaceWindow::OnCommand(WORD id, WORD code) {
  if (id == IDCANCEL) {
    Clicked(FindControl::kCommand9);
    return;
  }
  for (const Part& part : parts_) {
    const FindPart& description = *part.description;
    if (static_cast<WORD>(description.control) != id || !IsWindowEnabled(part.window)) continue;
    if (description.kind == FindPartKind::kCombo) {
      if ((code == CBN_EDITCHANGE || code == CBN_SELCHANGE) && events_.textChanged) {
        events_.textChanged(description.control);
      }
    } else if (code == BN_CLICKED && description.kind != FindPartKind::kField) {
      // The dialog may be gone when this returns.
      Clicked(description.control);
    }
    return;
  }
}

void FindAndReplaceWindow::Clicked(FindControl control) const {
  if (events_.clicked) events_.clicked(control);
}

void FindAndReplaceWindow::OnPointerMoved(HWND window, LPARAM point) const {
  if (HasPointerMoved(window, point) && events_.mouseMoved) events_.mouseMoved();
}

void FindAndReplaceWindow::OnDpiChanged(int dpi, const RECT& suggested) {
  dpi_ = dpi;
  SetLooks();
  MoveTo(window_, FromRect(suggested));
  SizeToContents();
  LayOut();
}

INT_PTR FindAndReplaceWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      ScaleByOurselves(window_);
      CreateParts();
      loop_.AddDialog(window_);
      return FALSE;  // the focus is set later
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code != TCN_SELCHANGE) return FALSE;
      ChoosePage(
          static_cast<FindPage>(SendMessageW(Control(FindControl::kSSTab1), TCM_GETCURSEL, 0, 0)));
      return TRUE;
    case WM_MOUSEMOVE:
      OnPointerMoved(window_, lParam);
      return FALSE;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return reinterpret_cast<INT_PTR>(background_.BrushFor(Control(FindControl::kSSTab1),
                                                            reinterpret_cast<HWND>(lParam),
                                                            reinterpret_cast<HDC>(wParam)));
    case WM_THEMECHANGED:
    case WM_SYSCOLORCHANGE:
      background_.Forget();
      return FALSE;
    case kDpiChanged:
      OnDpiChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return TRUE;
    case WM_DESTROY:
      ForgetAccessibleName(Control(FindControl::kSSTab1));
      loop_.RemoveDialog(window_);
      parts_.clear();
      window_ = nullptr;
      return FALSE;
    default:
      return FALSE;
  }
}

INT_PTR CALLBACK FindAndReplaceWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    auto* self = reinterpret_cast<FindAndReplaceWindow*>(lParam);
    self->window_ = window;
    SetWindowLongPtrW(window, DWLP_USER, lParam);
  }
  auto* self = reinterpret_cast<FindAndReplaceWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr || self->window_ != window) return FALSE;
  return InProcedure([&] { return self->Handle(message, wParam, lParam); });
}

LRESULT FindAndReplaceWindow::OnTabsMessage(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
  if (message == WM_MOUSEMOVE) OnPointerMoved(window, lParam);
  return CallSubclassed(window, message, wParam, lParam);
}

}  // namespace deck
