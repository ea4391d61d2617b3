#include "platform/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace deck {
namespace {

constexpr std::string_view kUtf8MarkBytes = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LeMarkBytes = "\xFF\xFE";
constexpr std::string_view kUtf16BeMarkBytes = "\xFE\xFF";
constexpr char32_t kReplacement = 0xFFFD;

std::uint8_t ByteAt(std::string_view bytes, std::size_t index) {
  return static_cast<std::uint8_t>(bytes[index]);
}

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Each byte as the character of its number.
std::u16string Widened(std::string_view bytes) {
  std::u16string text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return char16_t{static_cast<unsigned char>(byte)}; });
  return text;
}

std::optional<std::string> Narrowed(std::u16string_view text) {
  if (std::any_of(text.begin(), text.end(), [](char16_t c) { return c > 0xFF; }))
    return std::nullopt;
  std::string bytes(text.size(), '\0');
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](char16_t character) { return static_cast<char>(character); });
  return bytes;
}

void AppendUtf16(std::u16string& text, char32_t character) {
  if (character < 0x10000) {
    text += static_cast<char16_t>(character);
    return;
  }
  character -= 0x10000;
  text += static_cast<char16_t>(0xD800 + (character >> 10));
  text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

// The first byte of a sequence tells its length and its upper bits; `smallest` is the first
// character that needs this length.
struct Utf8Lead {
  std::size_t length;
  char32_t bits;
  char32_t smallest;
};

std::optional<Utf8Lead> LeadOf(std::uint8_t byte) {
  if (byte < 0x80) return Utf8Lead{1, byte, 0};
  if (byte >= 0xC2 && byte <= 0xDF) return Utf8Lead{2, byte & 0x1FU, 0x80};
  if (byte >= 0xE0 && byte <= 0xEF) return Utf8Lead{3, byte & 0x0FU, 0x800};
  if (byte >= 0xF0 && byte <= 0xF4) return Utf8Lead{4, byte & 0x07U, 0x10000};
  return std::nullopt;
}

// Nothing unless every byte belongs to the shortest form of a character.
std::optional<std::u16string> DecodeUtf8(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const std::optional<Utf8Lead> lead = LeadOf(ByteAt(bytes, i));
    if (!lead || bytes.size() - i < lead->length) return std::nullopt;
    char32_t character = lead->bits;
    for (std::size_t k = 1; k < lead->length; ++k) {
      const std::uint8_t next = ByteAt(bytes, i + k);
      if ((next & 0xC0) != 0x80) return std::nullopt;
      character = (character << 6) | (next & 0x3FU);
    }
    const bool isSurrogate = IsHighSurrogate(character) || IsLowSurrogate(character);
    if (character < lead->smallest || character > 0x10FFFF || isSurrogate) return std::nullopt;
    AppendUtf16(text, character);
    i += lead->length;
  }
  return text;
}

void AppendUtf8(std::string& bytes, char32_t character) {
  const auto append = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
  if (character < 0x80) return append(character);
  if (character < 0x800) {
    append(0xC0 | (character >> 6));
  } else if (character < 0x10000) {
    append(0xE0 | (character >> 12));
    append(0x80 | ((character >> 6) & 0x3F));
  } else {
    append(0xF0 | (character >> 18));
    append(0x80 | ((character >> 12) & 0x3F));
    append(0x80 | ((character >> 6) & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

// Half a surrogate pair has no form in UTF-8 and becomes U+FFFD.
std::string EncodeUtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 8);
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t character = text[i];
    if (IsHighSurrogate(character) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      character = 0x10000 + ((character - 0xD800) << 10) + (text[i + 1] - 0xDC00U);
      ++i;
    } else if (IsHighSurrogate(character) || IsLowSurrogate(character)) {
      character = kReplacement;
    }
    AppendUtf8(bytes, character);
  }
  return bytes;
}

// `high` is the index of the more significant byte in each pair. A single byte at the end becomes
// U+FFFD; half a surrogate pair stays what it is.
std::u16string DecodeUtf16(std::string_view bytes, std::size_t high) {
  std::u16string text;
  text.reserve(bytes.size() / 2 + 1);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    text += static_cast<char16_t>(ByteAt(bytes, i + high) << 8 | ByteAt(bytes, i + 1 - high));
  if (bytes.size() % 2 != 0) text += static_cast<char16_t>(kReplacement);
  return text;
}

std::string EncodeUtf16(std::u16string_view text, std::size_t high) {
  std::string bytes(text.size() * 2, '\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    bytes[2 * i + high] = static_cast<char>(text[i] >> 8);
    bytes[2 * i + 1 - high] = static_cast<char>(text[i] & 0xFF);
  }
  return bytes;
}

std::optional<std::u16string> DecodeCodePage(std::string_view bytes, const CodePage& codePage) {
  std::optional<std::u16string> text = codePage.Decode(bytes);
  if (text && codePage.Encode(*text) != bytes) return std::nullopt;
  return text;
}

// With line breaks as in the file.
DecodedText DecodeCharacters(std::string_view bytes, const CodePage& codePage) {
  const auto decoded = [](std::u16string text, Encoding encoding) {
    return DecodedText{std::move(text), {.encoding = encoding}};
  };
  if (IsAscii(bytes)) return decoded(Widened(bytes), Encoding::kCodePage);
  if (bytes.starts_with(kUtf16LeMarkBytes))
    return decoded(DecodeUtf16(bytes.substr(2), 1), Encoding::kUtf16Le);
  if (bytes.starts_with(kUtf16BeMarkBytes))
    return decoded(DecodeUtf16(bytes.substr(2), 0), Encoding::kUtf16Be);
  if (bytes.starts_with(kUtf8MarkBytes)) {
    if (auto text = DecodeUtf8(bytes.substr(3)))
      return decoded(*std::move(text), Encoding::kUtf8Mark);
  } else if (auto text = DecodeUtf8(bytes)) {
    return decoded(*std::move(text), Encoding::kUtf8);
  }
  if (auto text = DecodeCodePage(bytes, codePage))
    return decoded(*std::move(text), Encoding::kCodePage);
  return decoded(Widened(bytes), Encoding::kBytes);
}

// Counts of each kind, and which was seen first.
class LineBreakTally {
 public:
  void Add(LineBreak kind) {
    ++counts_[static_cast<std::size_t>(kind)];
    if (!first_) first_ = kind;
  }

  LineBreak MostOften() const {
    LineBreak most = first_.value_or(FileFormat().lineBreak);
    for (const LineBreak kind : {LineBreak::kCrLf, LineBreak::kLf, LineBreak::kCr})
      if (Count(kind) > Count(most)) most = kind;
    return most;
  }

 private:
  std::size_t Count(LineBreak kind) const { return counts_[static_cast<std::size_t>(kind)]; }

  std::array<std::size_t, 3> counts_{};
  std::optional<LineBreak> first_;
};

// Makes every line break one '\n' and tells which kind there was most often.
LineBreak UnifyLineBreaks(std::u16string& text) {
  LineBreakTally tally;
  std::size_t written = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char16_t character = text[i];
    if (character == u'\n') {
      tally.Add(LineBreak::kLf);
    } else if (character == u'\r') {
      character = u'\n';
      const bool isPair = i + 1 < text.size() && text[i + 1] == u'\n';
      tally.Add(isPair ? LineBreak::kCrLf : LineBreak::kCr);
      if (isPair) ++i;
    }
    text[written++] = character;
  }
  text.resize(written);
  return tally.MostOften();
}

std::u16string WithLineBreaks(std::u16string_view text, LineBreak lineBreak) {
  std::u16string converted;
  converted.reserve(text.size() + text.size() / 16);
  for (const char16_t character : text) {
    if (character != u'\n') {
      converted += character;
      continue;
    }
    if (lineBreak != LineBreak::kLf) converted += u'\r';
    if (lineBreak != LineBreak::kCr) converted += u'\n';
  }
  return converted;
}

// Nothing when the encoding cannot hold the text.
std::optional<std::string> EncodeCharacters(std::u16string_view text, Encoding encoding,
                                            const CodePage& codePage) {
  switch (encoding) {
    case Encoding::kCodePage:
      return codePage.Encode(text);
    case Encoding::kUtf8:
      return EncodeUtf8(text);
    case Encoding::kUtf8Mark:
      return std::string(kUtf8MarkBytes) + EncodeUtf8(text);
    case Encoding::kUtf16Le:
      return std::string(kUtf16LeMarkBytes) + EncodeUtf16(text, 1);
    case Encoding::kUtf16Be:
      return std::string(kUtf16BeMarkBytes) + EncodeUtf16(text, 0);
    case Encoding::kBytes:
      break;
  }
  return Narrowed(text);
}

}  // namespace

Result<DecodedText> DecodeFile(std::string_view bytes, const CodePage& codePage) {
  DecodedText decoded = DecodeCharacters(bytes, codePage);
  if (decoded.text.find(u'\0') != std::u16string::npos)
    return Problem{u"The file holds zero bytes, so it is not a text file."};
  decoded.format.lineBreak = UnifyLineBreaks(decoded.text);
  return decoded;
}

std::string EncodeFile(std::u16string_view text, FileFormat& format, const CodePage& codePage) {
  const std::u16string lines = WithLineBreaks(text, format.lineBreak);
  if (auto bytes = EncodeCharacters(lines, format.encoding, codePage)) return *std::move(bytes);
  format.encoding = Encoding::kUtf8;
  return EncodeUtf8(lines);
}

std::u16string DecodeValue(std::string_view bytes, const CodePage& codePage) {
  if (auto text = DecodeUtf8(bytes)) return *std::move(text);
  if (auto text = codePage.Decode(bytes)) return *std::move(text);
  return Widened(bytes);
}

std::string EncodeValue(std::u16string_view text, const CodePage& codePage) {
  std::optional<std::string> bytes = codePage.Encode(text);
  // Bytes of the code page that happen to be UTF-8 would be read as something else.
  if (bytes && DecodeValue(*bytes, codePage) == text) return *std::move(bytes);
  return EncodeUtf8(text);
}

}  // namespace deck
