#include "compiler/wait_settings.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kSection = u"Unsupported";

// A whole decimal number with an optional sign, blanks round it allowed.
std::optional<std::int32_t> WholeNumber(std::u16string_view text) {
  text = Trim(text);
  if (text.starts_with(u'+') && !text.starts_with(u"+-")) text.remove_prefix(1);
  std::string digits;
  for (const char16_t character : text) {
    if (character > 0x7F) return std::nullopt;
    digits += static_cast<char>(character);
  }
  std::int32_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stopped, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stopped != end) return std::nullopt;
  return number;
}

std::int32_t Read(const ProfileFiles& profiles, const std::u16string& path, std::u16string_view key,
                  std::int32_t fallback) {
  return WholeNumber(profiles.ReadText(path, kSection, key, Decimal(fallback))).value_or(fallback);
}

}  // namespace

WaitSettings ReadWaitSettings(const ProfileFiles& profiles, const std::u16string& hostPath) {
  const WaitSettings defaults;
  return {
      .WaitLimit = Read(profiles, hostPath, u"RegainControlAfter", defaults.WaitLimit),
      .PollInterval = Read(profiles, hostPath, u"CheckForCompletionTime", defaults.PollInterval)};
}

}  // namespace deck
