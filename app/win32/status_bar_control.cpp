#include "app/win32/status_bar_control.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "documents/layout.h"
#include "platform/control_ids.h"
#include "platform/scope_value.h"
#include "platform/twips.h"
#include "platform/win32/accessible_name.h"
#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/pointer_motion.h"
#include "platform/win32/subclass.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// The longest text that a panel usually shows: it keeps its width while its text changes.
constexpr const char16_t* kUsualTexts[kStatusPanels] = {
    u"",      u"Line no: 99999",         u"New file", u"INS", u"CAPS", u"NUM",
    u"00:00", u"No macro file analysed",
};

// Pixels at 96 dpi.
constexpr int kPanelMargins = 14;
constexpr int kWidestPanel = 280;

bool NeedsTexts(UINT message) {
  switch (message) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
    case SB_GETTEXTA:
    case SB_GETTEXTW:
    case SB_GETTEXTLENGTHA:
    case SB_GETTEXTLENGTHW:
      return true;
    default:
      return false;
  }
}

}  // namespace

StatusBarControl::StatusBarControl(HWND parent, std::function<void()> hovered)
    : window_(CreateWindowExW(
          0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBARS_SIZEGRIP, 0, 0,
          0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(ControlId::kStatusBar1)),
          GetModuleHandleW(nullptr), nullptr)),
      hovered_(std::move(hovered)),
      tips_(window_) {
  Subclass<&StatusBarControl::OnMessage>(window_, this);
  SetAccessibleName(window_, L"Status bar");
}

void StatusBarControl::SetFont(HFONT font, int dpi) {
  font_ = font;
  dpi_ = dpi;
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  std::array<int, 3> borders{};  // horizontal, vertical, between panels
  SendMessageW(window_, SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(borders.data()));
  SendMessageW(window_, SB_SETMINHEIGHT,
               static_cast<WPARAM>(LeastStatusBarHeight(dpi) - 2 * borders[1]), 0);
}

void StatusBarControl::SetPanel(int panel, const std::u16string& text) {
  const auto index = static_cast<std::size_t>(panel - 1);
  texts_[index] = text;
  if (!unshown_.test(index)) {
    RECT where{};
    SendMessageW(window_, SB_GETRECT, index, reinterpret_cast<LPARAM>(&where));
    InvalidateRect(window_, &where, TRUE);
  }
  unshown_.set(index);
  ArrangePanels();
  ShowToolTips();
}

// The control paints a text as soon as it has it, and opening a file shows a dozen of them: it gets
// the last ones, when it is going to paint or is asked for them.
void StatusBarControl::ShowTexts() {
  const ScopeValue<bool> showing(showingTexts_, true);
  for (std::size_t index = 0; index < texts_.size(); ++index) {
    if (!unshown_.test(index)) continue;
    unshown_.reset(index);
    std::u16string text = texts_[index];
    // A tab would move what follows it to the middle of the panel.
    std::replace(text.begin(), text.end(), u'\t', u' ');
    SendMessageW(window_, SB_SETTEXTW, index, reinterpret_cast<LPARAM>(Wide(text)));
  }
}

void StatusBarControl::SetPanelToolTip(int panel, const std::u16string& text) {
  toolTips_[static_cast<std::size_t>(panel - 1)] = text;
  ShowToolTips();
}

void StatusBarControl::Arrange() {
  SendMessageW(window_, WM_SIZE, 0, 0);
  edges_ = {};
  ArrangePanels();
  ShowToolTips();
}

int StatusBarControl::Height() const {
  RECT bar{};
  GetWindowRect(window_, &bar);
  return bar.bottom - bar.top;
}

std::array<int, kStatusPanels> StatusBarControl::Wanted() const {
  const TextMeasure measure(window_, font_);
  std::array<int, kStatusPanels> wanted{};
  for (std::size_t panel = 1; panel < wanted.size(); ++panel) {
    const int text = std::max(measure.Width(kUsualTexts[panel]), measure.Width(texts_[panel]));
    wanted[panel] =
        std::min(text + ScaleToDpi(kPanelMargins, dpi_), ScaleToDpi(kWidestPanel, dpi_));
  }
  wanted.back() += SystemMetric(SM_CXVSCROLL, dpi_);  // for the grip
  return wanted;
}

void StatusBarControl::ArrangePanels() {
  RECT bar{};
  GetClientRect(window_, &bar);
  std::array<int, kStatusPanels> edges = StatusPanelEdges(bar.right, Wanted());
  if (edges == edges_) return;
  edges_ = edges;
  SendMessageW(window_, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void StatusBarControl::ShowToolTips() {
  const TextMeasure measure(window_, font_);
  for (std::size_t panel = 0; panel < toolTips_.size(); ++panel) {
    RECT where{};
    SendMessageW(window_, SB_GETRECT, panel, reinterpret_cast<LPARAM>(&where));
    const bool isCut = measure.Width(texts_[panel]) > where.right - where.left;
    tips_.Set(panel, where, toolTips_[panel].empty() && isCut ? texts_[panel] : toolTips_[panel]);
  }
}

LRESULT StatusBarControl::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  // Wine's control has itself painted for each of them; once, with all of them, is enough.
  if (message == WM_PAINT && showingTexts_) return 0;
  if (NeedsTexts(message)) ShowTexts();
  tips_.Relay(message, wParam, lParam);
  if (message == WM_MOUSEMOVE && HasPointerMoved(window, lParam) && hovered_) hovered_();
  return CallSubclassed(window, message, wParam, lParam);
}

}  // namespace deck
