#include "keytest/key_test_settings.h"

#include <algorithm>
#include <string_view>

#include "keytest/key_tester.h"
#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kSection = u"Key Tester";

enum class StoredAs { kText, kInteger };

struct Row {
  std::u16string_view key;
  StoredAs storedAs;
  int KeyTestSettings::*value;
};

// In the order in which they are written; the defaults are those of the structure.
constexpr Row kRows[] = {
    {u"KeyTopAtStartup", StoredAs::kText, &KeyTestSettings::top},
    {u"KeyLeftAtStartup", StoredAs::kText, &KeyTestSettings::left},
    {u"KeyWidthAtStartup", StoredAs::kText, &KeyTestSettings::width},
    {u"KeyHeightAtStartup", StoredAs::kText, &KeyTestSettings::height},
    {u"ClearDelay", StoredAs::kInteger, &KeyTestSettings::clearDelay},
    {u"KeyViewAll", StoredAs::kInteger, &KeyTestSettings::keyViewAll},
    {u"MenuDisplay", StoredAs::kInteger, &KeyTestSettings::menuDisplay},
};

// Larger numbers are no places of windows; cut to these they stay far outside every screen.
constexpr int kMostTwips = 10'000'000;

// The whole number that the text begins with, whatever follows it.
int ParsePlace(std::u16string_view text, int fallback) {
  text = Trim(text);
  const bool isNegative = text.starts_with(u'-');
  if (isNegative || text.starts_with(u'+')) text.remove_prefix(1);
  int number = 0;
  std::size_t digits = 0;
  while (digits < text.size() && text[digits] >= u'0' && text[digits] <= u'9') {
    number = std::min(10 * number + (text[digits] - u'0'), kMostTwips);
    ++digits;
  }
  if (digits == 0) return fallback;
  return isNegative ? -number : number;
}

int Read(const ProfileFiles& profiles, const std::u16string& file, const Row& row, int fallback) {
  if (row.storedAs == StoredAs::kInteger) {
    return profiles.ReadInteger(file, kSection, row.key, fallback);
  }
  return ParsePlace(profiles.ReadText(file, kSection, row.key, Decimal(fallback)), fallback);
}

}  // namespace

KeyTestSettings GetKeyPosition(const ProfileFiles& profiles, const std::u16string& file) {
  KeyTestSettings settings;
  for (const Row& row : kRows) {
    settings.*row.value = Read(profiles, file, row, settings.*row.value);
  }
  if (settings.clearDelay < 0 || settings.clearDelay >= kClearDelays) {
    settings.clearDelay = kClearDelayOff;
  }
  return settings;
}

bool SaveKeyFormPosition(ProfileFiles& profiles, const std::u16string& file,
                         const KeyTestSettings& settings) {
  bool written = true;
  for (const Row& row : kRows) {
    written &= profiles.WriteText(file, kSection, row.key, Decimal(settings.*row.value));
  }
  return written;
}

}  // namespace deck
