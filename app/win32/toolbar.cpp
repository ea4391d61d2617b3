#include "app/win32/toolbar.h"

#include <windowsx.h>

#include <utility>
#include <vector>

#include "app/win32/resource_ids.h"
#include "platform/control_ids.h"
#include "platform/twips.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/subclass.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// Pixels at 96 dpi.
constexpr int kImageSize = 16;
constexpr int kButtonPadding = 7;  // on both sides together
constexpr int kBarPadding = 3;     // above and below together

const CommandRow* ButtonAt(int index) {
  for (const CommandRow& row : kCommands) {
    if (row.toolbarIndex == index) return &row;
  }
  return nullptr;
}

// Buttons without a command on the way to the last one are the separators.
std::vector<const CommandRow*> ButtonsInOrder() {
  std::vector<const CommandRow*> buttons;
  for (int index = 1; index <= kToolbarButtons; ++index) buttons.push_back(ButtonAt(index));
  return buttons;
}

}  // namespace

Toolbar::Toolbar(HWND parent, std::function<void(CommandId)> hovered)
    : window_(CreateWindowExW(
          0, TOOLBARCLASSNAMEW, L"Toolbar1",
          WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS |
              CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN,
          0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(ControlId::kToolbar1)),
          GetModuleHandleW(nullptr), nullptr)),
      hovered_(std::move(hovered)) {
  Subclass<&Toolbar::OnMessage>(window_, this);
  SendMessageW(window_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  AddButtons();
  SetAccessibleName(window_, L"Toolbar");
}

// Without tips the hints are still there to be asked for: they are the names of the buttons, which
// have no other.
void Toolbar::ShowToolTips(bool show) {
  const auto tips = reinterpret_cast<HWND>(SendMessageW(window_, TB_GETTOOLTIPS, 0, 0));
  SendMessageW(tips, TTM_ACTIVATE, static_cast<WPARAM>(show), 0);
}

void Toolbar::AddButtons() {
  std::vector<TBBUTTON> buttons;
  int image = 0;
  for (const CommandRow* row : ButtonsInOrder()) {
    TBBUTTON button{};
    button.fsState = TBSTATE_ENABLED;
    if (row == nullptr) {
      button.fsStyle = BTNS_SEP;
    } else {
      button.idCommand = static_cast<int>(row->id);
      button.iBitmap = image++;
      button.fsStyle = BTNS_BUTTON;
    }
    buttons.push_back(button);
  }
  SendMessageW(window_, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
}

void Toolbar::SetDpi(int dpi) {
  const int size = ScaleToDpi(kImageSize, dpi);
  ImageListHandle images(ImageList_Create(size, size, ILC_COLOR32, kToolbarButtons, 0));
  for (const CommandRow* row : ButtonsInOrder()) {
    if (row == nullptr) continue;
    const IconHandle icon(static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_TOOLBAR + row->toolbarIndex),
                   IMAGE_ICON, size, size, 0)));
    ImageList_AddIcon(images.Get(), icon.Get());
  }
  SendMessageW(window_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.Get()));
  // Only now is the old one out of use.
  images_ = std::move(images);
  const int button = size + ScaleToDpi(kButtonPadding, dpi);
  SendMessageW(window_, TB_SETBUTTONSIZE, 0, MAKELPARAM(button, button));
}

int Toolbar::Height() const {
  const auto size = static_cast<DWORD>(SendMessageW(window_, TB_GETBUTTONSIZE, 0, 0));
  return HIWORD(size) + kBarPadding;
}

void Toolbar::SetCommand(CommandId command, const CommandState& state) {
  const auto id = static_cast<WPARAM>(command);
  SendMessageW(window_, TB_ENABLEBUTTON, id, MAKELPARAM(state.enabled, 0));
  SendMessageW(window_, TB_CHECKBUTTON, id, MAKELPARAM(state.checked, 0));
}

bool Toolbar::OnNotify(NMHDR& header) const {
  const auto tips = reinterpret_cast<HWND>(SendMessageW(window_, TB_GETTOOLTIPS, 0, 0));
  if (header.hwndFrom != tips || header.code != TTN_GETDISPINFOW) return false;
  const CommandRow* row = FindCommand(static_cast<CommandId>(header.idFrom));
  if (row == nullptr) return true;
  // The hints are literals, which end in U+0000; the system only reads.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the structure does not say so
  auto* const hint = const_cast<char16_t*>(row->hint.data());
  reinterpret_cast<NMTTDISPINFOW&>(header).lpszText = reinterpret_cast<wchar_t*>(hint);
  return true;
}

void Toolbar::OnMouseMove(LPARAM point) const {
  POINT where{GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  const auto index =
      static_cast<int>(SendMessageW(window_, TB_HITTEST, 0, reinterpret_cast<LPARAM>(&where)));
  // Separators and the bar's own ground give negative numbers.
  if (index < 0) return;
  if (const CommandRow* row = ButtonAt(index + 1); row != nullptr && hovered_) hovered_(row->id);
}

LRESULT Toolbar::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSEMOVE && HasPointerMoved(window, lParam)) OnMouseMove(lParam);
  return CallSubclassed(window, message, wParam, lParam);
}

}  // namespace deck
