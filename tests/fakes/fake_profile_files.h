// INI files in memory, with the reading rules of the system's private-profile functions.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_files.h"

namespace deck {

class FakeProfileFiles : public ProfileFiles {
 public:
  struct Write {
    std::u16string file;
    std::u16string section;
    std::u16string key;
    std::u16string value;

    friend bool operator==(const Write&, const Write&) = default;
  };

  int ReadInteger(const std::u16string& file, std::u16string_view section, std::u16string_view key,
                  int fallback) const override;
  std::u16string ReadText(const std::u16string& file, std::u16string_view section,
                          std::u16string_view key, std::u16string_view fallback,
                          int buffer = kProfileTextBuffer) const override;
  bool WriteText(const std::u16string& file, std::u16string_view section, std::u16string_view key,
                 std::u16string_view value) override;
  bool WriteTexts(const std::u16string& file, std::u16string_view section,
                  const std::vector<ProfileText>& texts) override;

  // The raw text of a file, lines ending in "\r\n" or "\n"; empty when there is no such file.
  std::u16string Text(const std::u16string& file) const;
  void SetText(const std::u16string& file, std::u16string_view text);
  // For values of a single file, "" when missing.
  std::u16string Value(const std::u16string& file, std::u16string_view section,
                       std::u16string_view key) const;

  // Those that succeeded, in order.
  std::vector<Write> writes;
  bool writable = true;
  // Runs before each write that will succeed.
  std::function<void(const Write&)> onWrite;

 private:
  std::map<std::u16string, std::u16string> texts_;  // by path in lower case
};

}  // namespace deck
