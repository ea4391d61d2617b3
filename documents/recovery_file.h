// The file in which an unsaved text outlives the program that held it: UTF-16LE with a mark, so
// that a user can read it with any editor should this one be gone. Some lines tell where the text
// belongs, an empty line follows, then the text itself with '\n' for every line break.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace deck {

// Tells the bytes of one file from those of another. 64-bit FNV-1a: enough against chance, none
// against forgery, which nobody would gain from here.
std::uint64_t FingerprintOf(std::string_view bytes);

struct RecoveryText {
  std::u16string path;  // as the document had it; empty for an untitled one
  FileFormat format;
  // Of the bytes that the document last read or wrote under `path`.
  std::uint64_t fingerprint = 0;
  std::u16string text;

  friend bool operator==(const RecoveryText&, const RecoveryText&) = default;
};

std::string EncodeRecoveryFile(const RecoveryText& recovery);
// Nothing for bytes that EncodeRecoveryFile did not write.
std::optional<RecoveryText> DecodeRecoveryFile(std::string_view bytes);

// The name of a recovery file: the editor it belongs to, and its number there.
struct RecoveryName {
  int session = 0;  // from 1
  int number = 0;   // from 1

  friend bool operator==(const RecoveryName&, const RecoveryName&) = default;
};

std::u16string FileNameFor(RecoveryName name);
// Nothing for a name that FileNameFor does not give.
std::optional<RecoveryName> ParseRecoveryName(std::u16string_view fileName);

}  // namespace deck
