#include "platform/win32/win32_printer.h"

#include <commdlg.h>
#include <winspool.h>

#include <algorithm>
#include <array>

#include "platform/win32/system_error.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

constexpr int kFontPoints = 10;
constexpr int kPointsPerInch = 72;
// Of the sheet, on every side; the printable area begins somewhere inside.
constexpr double kMarginInches = 2.0 / 2.54;
// The footer and an empty line above it.
constexpr int kFooterRows = 2;

// The text's part of one side of the sheet, in dots.
struct Extent {
  int start;  // from the edge of the printable area
  int length;
};

Extent InsideMargins(HDC context, int resolution, int sheet, int offset, int printable) {
  const int margin =
      static_cast<int>(kMarginInches * static_cast<double>(GetDeviceCaps(context, resolution)));
  const int unprintable = GetDeviceCaps(context, offset);
  const int end = GetDeviceCaps(context, sheet) - margin - unprintable;
  const int start = std::max(margin - unprintable, 0);
  return {start, std::min(end, GetDeviceCaps(context, printable)) - start};
}

PRINTDLGW DialogFor(HWND owner, DWORD flags) {
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.Flags = flags;
  return dialog;
}

// Why the call failed that was made after ForgetErrors. Not every driver tells.
Problem PrinterProblem() {
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? ProblemOf(error) : Problem{u"The printer does not answer."};
}

void ForgetErrors() {
  SetLastError(ERROR_SUCCESS);
}

}  // namespace

int Win32Printer::InstalledPrinters() const {
  constexpr DWORD kFlags = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
  constexpr DWORD kLevel = 4;  // names only: does not ask printers on the network
  DWORD needed = 0;
  DWORD count = 0;
  EnumPrintersW(kFlags, nullptr, kLevel, nullptr, 0, &needed, &count);
  std::vector<BYTE> buffer(needed);
  if (!EnumPrintersW(kFlags, nullptr, kLevel, buffer.data(), needed, &needed, &count)) return 0;
  return static_cast<int>(count);
}

void Win32Printer::Setup() {
  PRINTDLGW dialog = DialogFor(owner_(), PD_PRINTSETUP);
  // The dialog takes both over, and may have made new ones even when it was cancelled.
  dialog.hDevMode = deviceMode_.Release();
  dialog.hDevNames = deviceNames_.Release();
  PrintDlgW(&dialog);
  deviceMode_.Reset(dialog.hDevMode);
  deviceNames_.Reset(dialog.hDevNames);
}

bool Win32Printer::OpenContext() {
  if (!deviceNames_) {
    PRINTDLGW dialog = DialogFor(nullptr, PD_RETURNDEFAULT);
    if (!PrintDlgW(&dialog)) return false;
    deviceMode_.Reset(dialog.hDevMode);
    deviceNames_.Reset(dialog.hDevNames);
  }
  const auto* names = static_cast<const DEVNAMES*>(GlobalLock(deviceNames_.Get()));
  if (names == nullptr) return false;
  const auto* text = reinterpret_cast<const wchar_t*>(names);
  const auto* mode =
      deviceMode_ ? static_cast<const DEVMODEW*>(GlobalLock(deviceMode_.Get())) : nullptr;
  context_.Reset(
      CreateDCW(text + names->wDriverOffset, text + names->wDeviceOffset, nullptr, mode));
  if (mode != nullptr) GlobalUnlock(deviceMode_.Get());
  GlobalUnlock(deviceNames_.Get());
  return static_cast<bool>(context_);
}

PageSize Win32Printer::Measure() {
  const HDC context = context_.Get();
  const Extent across = InsideMargins(context, LOGPIXELSX, PHYSICALWIDTH, PHYSICALOFFSETX, HORZRES);
  const Extent down = InsideMargins(context, LOGPIXELSY, PHYSICALHEIGHT, PHYSICALOFFSETY, VERTRES);
  TEXTMETRICW metrics{};
  GetTextMetricsW(context, &metrics);
  origin_ = {across.start, down.start};
  lineHeight_ = std::max<int>(metrics.tmHeight + metrics.tmExternalLeading, 1);
  rows_ = std::max(down.length / lineHeight_, kFooterRows + 1);
  return {across.length / std::max<int>(metrics.tmAveCharWidth, 1), rows_ - kFooterRows};
}

Result<PageSize> Win32Printer::BeginJob(const std::u16string& name) {
  if (!OpenContext()) return Problem{u"The printer does not answer."};
  const int dots = GetDeviceCaps(context_.Get(), LOGPIXELSY);
  font_.Reset(CreateFontW(-MulDiv(kFontPoints, dots, kPointsPerInch), 0, 0, 0, FW_NORMAL, FALSE,
                          FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                          DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New"));
  SelectObject(context_.Get(), font_.Get());
  const PageSize size = Measure();
  DOCINFOW job{};
  job.cbSize = sizeof job;
  job.lpszDocName = Wide(name);
  ForgetErrors();
  if (StartDocW(context_.Get(), &job) > 0) return size;
  const Problem problem = PrinterProblem();
  context_.Reset();
  return problem;
}

Result<void> Win32Printer::PrintPage(const std::vector<std::u16string>& lines,
                                     const std::u16string& footer) {
  const HDC context = context_.Get();
  ForgetErrors();
  if (StartPage(context) <= 0) return PrinterProblem();
  // A new page begins with the printer's own font.
  SelectObject(context, font_.Get());
  const auto print = [&](int row, const std::u16string& text) {
    return TextOutW(context, origin_.x, origin_.y + row * lineHeight_, Wide(text),
                    static_cast<int>(text.size())) != 0;
  };
  int row = 0;
  for (const std::u16string& line : lines) {
    if (!print(row, line)) return PrinterProblem();
    ++row;
  }
  if (!print(rows_ - 1, footer)) return PrinterProblem();
  if (EndPage(context) <= 0) return PrinterProblem();
  return {};
}

Result<void> Win32Printer::EndJob() {
  ForgetErrors();
  Result<void> ended;
  if (EndDoc(context_.Get()) <= 0) ended = PrinterProblem();
  context_.Reset();
  return ended;
}

void Win32Printer::AbortJob() {
  AbortDoc(context_.Get());
  context_.Reset();
}

std::u16string Win32Printer::ShortDate() const {
  std::array<wchar_t, 128> date{};
  const int length = GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr,
                                     date.data(), static_cast<int>(date.size()), nullptr);
  return FromWide({date.data(), static_cast<std::size_t>(std::max(length - 1, 0))});
}

}  // namespace deck
