// The INI file through which the Cougar's compiler and control panel program report what they did:
// HOTAS.ini in the compiler's folder. Holds what was last read from it; owned by app/editor.
//
// The section is cleared before each run, and the compiler writes "Status" last, so a status that
// is not empty means that the whole result is there.
#pragma once

#include <cstdint>
#include <string>

#include "platform/profile_files.h"
#include "platform/settings.h"

namespace deck {

// The last compile or download, section "Compiler".
struct CompilerResult {
  std::u16string FileName = {};
  std::u16string Status = {};     // empty while the compiler works
  std::int16_t LineNumber = 0;    // from 1; 0 when the error has no line
  std::int16_t Memory = 0;        // of the Cougar's memory, in percent
  std::u16string ErrorCode = {};  // in words, for the user
  std::u16string CompileTime = {};
  std::u16string DownloadTime = {};

  // Only "ERROR", letter for letter, is a failure: a run that was given up waiting for has an empty
  // status and counts as a success.
  bool Failed() const { return Status == u"ERROR"; }

  friend bool operator==(const CompilerResult&, const CompilerResult&) = default;
};

// The mode of the controllers, section "TMMODE".
struct ControllerMode {
  std::u16string Status;  // "ERROR" when the mode could not be read
  std::int16_t Axes = 0;
  std::int16_t Buttons = 0;  // 0: the programmed file does not act

  friend bool operator==(const ControllerMode&, const ControllerMode&) = default;
};

class HotasIni {
 public:
  HotasIni(ProfileFiles& profiles, const Settings& settings)
      : profiles_(profiles), settings_(settings) {}

  const CompilerResult& Result() const { return result_; }
  const ControllerMode& Mode() const { return mode_; }

  // Empties the result here and in the file, which is created when missing.
  void ClearCompilerResult();
  // A number that does not fit 16 bits leaves the one held here as it was; so does
  // ReadControllerMode.
  void ReadCompilerResult();
  // Only the status.
  void ReadCompilerStatus();

  void ReadControllerMode();
  // Only the status, which is empty when the file has none.
  void ReadControllerModeStatus();

 private:
  std::u16string Path() const;

  ProfileFiles& profiles_;
  const Settings& settings_;
  CompilerResult result_;
  ControllerMode mode_;
};

}  // namespace deck
