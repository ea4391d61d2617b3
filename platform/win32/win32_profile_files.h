// INI files through the system's private-profile functions of the code page: other programs write
// and read the same files with them. May be used from several threads. Owned by the program's
// entry.
#pragma once

#include <mutex>

#include "platform/code_page.h"
#include "platform/profile_files.h"

namespace deck {

class Win32ProfileFiles : public ProfileFiles {
 public:
  // `codePage` has to be the system's and to outlive this object.
  explicit Win32ProfileFiles(const CodePage& codePage) : codePage_(codePage) {}

  int ReadInteger(const std::u16string& file, std::u16string_view section, std::u16string_view key,
                  int fallback) const override;
  std::u16string ReadText(const std::u16string& file, std::u16string_view section,
                          std::u16string_view key, std::u16string_view fallback,
                          int buffer = kProfileTextBuffer) const override;
  bool WriteText(const std::u16string& file, std::u16string_view section, std::u16string_view key,
                 std::u16string_view value) override;
  bool WriteTexts(const std::u16string& file, std::u16string_view section,
                  const std::vector<ProfileText>& texts) override;

 private:
  std::string Encoded(std::u16string_view text) const;
  bool SetText(const std::string& path, std::u16string_view section, const ProfileText& text) const;
  bool SetTexts(const std::string& path, std::u16string_view section,
                const std::vector<ProfileText>& texts) const;
  bool SetOneByOne(const std::string& path, std::u16string_view section,
                   const std::vector<ProfileText>& texts) const;
  // The path in the code page; empty when it has no form there.
  std::string EncodedPath(const std::u16string& path) const;

  const CodePage& codePage_;
  // A change begins with a copy of what is there.
  std::mutex writing_;
};

}  // namespace deck
