// INI files, key by key and without a cache, through the system's private-profile functions.
// Several threads may use them at a time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace deck {

// Buffer of a text value in characters of the code page, the terminator included.
inline constexpr int kProfileTextBuffer = 500;

struct ProfileText {
  std::u16string key;
  std::u16string value;
};

class ProfileFiles {
 public:
  virtual ~ProfileFiles() = default;

  // `fallback` when file, section or key is missing or the value is empty; leading digits count
  // ("12abc" is 12), text without any is 0, "0x10" is 16. Values are 32 bits wide and wrap.
  virtual int ReadInteger(const std::u16string& file, std::u16string_view section,
                          std::u16string_view key, int fallback) const = 0;
  // At most `buffer` - 1 characters. Blanks and one pair of quotes round the value are removed.
  // `fallback`, without its trailing blanks, when file, section or key is missing.
  virtual std::u16string ReadText(const std::u16string& file, std::u16string_view section,
                                  std::u16string_view key, std::u16string_view fallback,
                                  int buffer = kProfileTextBuffer) const = 0;
  // Creates the file when missing. False when nothing was written.
  virtual bool WriteText(const std::u16string& file, std::u16string_view section,
                         std::u16string_view key, std::u16string_view value) = 0;
  // Keys and values of one section at once, which costs no more than one of them does and leaves a
  // program that is killed no half-written list. Other keys stay; comments in the section go.
  // False when something was not written.
  virtual bool WriteTexts(const std::u16string& file, std::u16string_view section,
                          const std::vector<ProfileText>& texts) = 0;
};

}  // namespace deck
