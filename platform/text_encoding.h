// From the bytes of a file to the program's text and back, without losing any: encodings, marks and
// line breaks are remembered, so that a file that was not edited is written as it was read.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/result.h"

namespace deck {

enum class Encoding {
  kCodePage,  // the system's code page
  kUtf8,      // without a mark; recognised by bytes above 0x7F that are all valid UTF-8
  kUtf8Mark,  // EF BB BF
  kUtf16Le,   // FF FE
  kUtf16Be,   // FE FF
  kBytes,     // not valid in any of these: each byte stands for the character of that number
};

enum class LineBreak { kCrLf, kLf, kCr };

// How a file is written. A new document has these defaults.
struct FileFormat {
  Encoding encoding = Encoding::kCodePage;
  LineBreak lineBreak = LineBreak::kCrLf;  // the one found most often

  friend bool operator==(const FileFormat&, const FileFormat&) = default;
};

struct DecodedText {
  std::u16string text;  // every kind of line break is one '\n'
  FileFormat format;
};

// Fails for text that holds U+0000, since no edit box can hold it. A mark whose text is not valid
// UTF-8 is not taken for one. The last byte of UTF-16 of odd size becomes U+FFFD, so an unedited
// file has to be written from the bytes that were read.
Result<DecodedText> DecodeFile(std::string_view bytes, const CodePage& codePage);
// The text in the format given; when the format cannot hold a character, in UTF-8 without a mark
// (UTF-16 holds every text; in UTF-8 half a surrogate pair becomes U+FFFD). `format` is what was
// used afterwards.
std::string EncodeFile(std::u16string_view text, FileFormat& format, const CodePage& codePage);

// Text of INI files and other single values: the code page, or UTF-8 where the bytes are UTF-8 and
// not plain ASCII. EncodeValue writes UTF-8 for text that would not come back from the code page.
std::u16string DecodeValue(std::string_view bytes, const CodePage& codePage);
std::string EncodeValue(std::u16string_view text, const CodePage& codePage);

}  // namespace deck
