#pragma once

// What every stand-in program shares: where it stands, the control file that a test puts beside it,
// the record of how it was started, and the INI file that the editor reads. Free of state but for
// the control file, which each main function reads once at its start.

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace deck {

// The running program's own directory, ending in a backslash.
[[nodiscard]] std::wstring ProgramDirectory();

// The running program's file name without ".exe".
[[nodiscard]] std::wstring ProgramName();

// To and from the system's code page; a character that it lacks becomes '?'.
[[nodiscard]] std::string ToCodePage(std::wstring_view text);
[[nodiscard]] std::wstring FromCodePage(std::string_view text);

// All bytes of a file, or nothing when it cannot be opened or read.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::wstring& path);

// Replaces the file's contents in one write; false when that fails.
[[nodiscard]] bool WriteWholeFile(const std::wstring& path, std::string_view bytes);

// Section "Control" of <program>.control.ini beside the program, as it is when this is made: what a
// test writes for the next start does not reach a program that still runs. A missing file has no
// keys.
class ControlFile {
 public:
  ControlFile();

  // The value as the profile functions give it, of a key in any case; nothing when the key is
  // absent. An empty value is there, so a test can ask for an empty text.
  [[nodiscard]] std::optional<std::string> Text(const std::string& key) const;
  // The value as a decimal number, 0 for a text; `absent` when the key is absent or empty.
  [[nodiscard]] int Number(const std::string& key, int absent) const;
  [[nodiscard]] bool IsSet(const std::string& key) const { return Number(key, 0) != 0; }

 private:
  std::map<std::string, std::string> values_;
};

// Appends to the file one UTF-8 block: the command line as the system holds it, the current
// directory and the show style ("-" when the starter gave none), each on a line, then a blank line.
void AppendRunRecord(const std::wstring& file);

// The same into the file that the control file's key "Record" names, if it has one. A relative path
// counts from the program's directory.
void RecordRun(const ControlFile& control);

// Writes to one section of HOTAS.ini beside the program; remembers whether every write succeeded.
class HotasIni {
 public:
  explicit HotasIni(const char* section);

  void Write(const char* key, const std::string& value);
  void RemoveSection();
  [[nodiscard]] bool AllWritten() const { return allWritten_; }
  [[nodiscard]] static std::wstring Path() { return ProgramDirectory() + L"HOTAS.ini"; }

 private:
  std::string path_;
  const char* section_;
  bool allWritten_ = true;
};

}  // namespace deck
