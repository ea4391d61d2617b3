// This test program, started by one of its own tests to write the same file again and again until
// it is killed.
#pragma once

#include <cstddef>
#include <string>

#include "platform/win32/handles.h"

namespace deck {

// What it writes is so many times one small letter, each time another one.
inline constexpr std::size_t kWrittenLength = 300'000;

// How many of these programs a test kills: a dozen, or as many as DECK_KILLS in the environment
// says.
unsigned Kills();

// A program that runs as long as this lives, and is killed on the spot then.
class KilledProgram {
 public:
  explicit KilledProgram(const std::u16string& commandLine);
  ~KilledProgram();
  KilledProgram(const KilledProgram&) = delete;
  KilledProgram& operator=(const KilledProgram&) = delete;

  DWORD Number() const { return GetProcessId(process_.Get()); }

 private:
  KernelHandle process_;
};

std::u16string WritingCommandLine(const std::u16string& file);
// Writes kSettingsWritten keys of section "Written" of an INI file, all with the same number, each
// time another one.
inline constexpr int kSettingsWritten = 16;
std::u16string SettingsWritingCommandLine(const std::u16string& file);
// Does not come back when this process was started by one of these command lines.
void WriteForEverIfAsked();

}  // namespace deck
