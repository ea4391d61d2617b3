#include "platform/win32/system_error.h"

#include <array>
#include <string>

#include "platform/strings.h"
#include "platform/win32/wide_text.h"

namespace deck {

Problem ProblemOf(DWORD error) {
  std::array<wchar_t, 512> buffer{};
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                     buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
  std::wstring reason(buffer.data(), length);
  reason.erase(reason.find_last_not_of(L"\r\n ") + 1);
  if (reason.empty()) return {u"Error " + Decimal(error) + u"."};
  return {FromWide(reason)};
}

}  // namespace deck
