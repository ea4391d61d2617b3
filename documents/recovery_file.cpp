#include "documents/recovery_file.h"

#include <charconv>
#include <cstddef>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kFirstLine = u"\uFEFFWrenDeck recovery 1\n";
constexpr std::u16string_view kPath = u"Path=";
constexpr std::u16string_view kEncoding = u"Encoding=";
constexpr std::u16string_view kLineBreak = u"LineBreak=";
constexpr std::u16string_view kFingerprint = u"Fingerprint=";
constexpr std::u16string_view kEndOfHeader = u"\n";
constexpr std::u16string_view kExtension = u".txt";

std::string ToBytes(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(2 * text.size());
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

std::u16string FromBytes(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                  static_cast<unsigned char>(bytes[i + 1]) << 8);
  }
  return text;
}

// Digits only, without a sign or zeros in front, as this program writes them.
std::optional<std::uint64_t> ParseNumber(std::u16string_view text) {
  if (text.empty() || text.size() > 20 || (text[0] == u'0' && text.size() > 1)) return std::nullopt;
  std::string digits;
  for (const char16_t character : text) {
    if (character < u'0' || character > u'9') return std::nullopt;
    digits += static_cast<char>(character);
  }
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

std::optional<int> ParseNumberFrom(std::u16string_view text, std::uint64_t least,
                                   std::uint64_t most) {
  const auto number = ParseNumber(text);
  if (!number || *number < least || *number > most) return std::nullopt;
  return static_cast<int>(*number);
}

std::u16string DecimalOf(std::uint64_t number) {
  std::u16string text;
  do {
    text.insert(text.begin(), static_cast<char16_t>(u'0' + number % 10));
    number /= 10;
  } while (number != 0);
  return text;
}

// Takes a line that begins with `key` off the text and gives what follows the key.
std::optional<std::u16string_view> TakeLine(std::u16string_view& text, std::u16string_view key) {
  if (!text.starts_with(key)) return std::nullopt;
  const std::size_t end = text.find(u'\n');
  if (end == std::u16string_view::npos) return std::nullopt;
  const std::u16string_view value = text.substr(key.size(), end - key.size());
  text.remove_prefix(end + 1);
  return value;
}

}  // namespace

std::uint64_t FingerprintOf(std::string_view bytes) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char byte : bytes) {
    hash ^= static_cast<unsigned char>(byte);
    hash *= 0x100000001B3;
  }
  return hash;
}

std::string EncodeRecoveryFile(const RecoveryText& recovery) {
  const auto line = [](std::u16string_view key, const std::u16string& value) {
    return std::u16string(key) + value + u"\n";
  };
  return ToBytes(std::u16string(kFirstLine) + line(kPath, recovery.path) +
                 line(kEncoding, Decimal(static_cast<int>(recovery.format.encoding))) +
                 line(kLineBreak, Decimal(static_cast<int>(recovery.format.lineBreak))) +
                 line(kFingerprint, DecimalOf(recovery.fingerprint)) +
                 std::u16string(kEndOfHeader)) +
         ToBytes(recovery.text);
}

std::optional<RecoveryText> DecodeRecoveryFile(std::string_view bytes) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  const std::u16string content = FromBytes(bytes);
  // No edit box could hold it.
  if (content.find(u'\0') != std::u16string::npos) return std::nullopt;
  std::u16string_view rest = content;
  if (!rest.starts_with(kFirstLine)) return std::nullopt;
  rest.remove_prefix(kFirstLine.size());

  const auto path = TakeLine(rest, kPath);
  const auto encoding = TakeLine(rest, kEncoding);
  const auto lineBreak = TakeLine(rest, kLineBreak);
  const auto fingerprint = TakeLine(rest, kFingerprint);
  if (!path || !encoding || !lineBreak || !fingerprint || !rest.starts_with(kEndOfHeader))
    return std::nullopt;
  rest.remove_prefix(kEndOfHeader.size());

  const auto encodingNumber =
      ParseNumberFrom(*encoding, 0, static_cast<std::uint64_t>(Encoding::kBytes));
  const auto breakNumber =
      ParseNumberFrom(*lineBreak, 0, static_cast<std::uint64_t>(LineBreak::kCr));
  const auto fingerprintNumber = ParseNumber(*fingerprint);
  if (!encodingNumber || !breakNumber || !fingerprintNumber) return std::nullopt;
  return RecoveryText{
      .path = std::u16string(*path),
      .format = {static_cast<Encoding>(*encodingNumber), static_cast<LineBreak>(*breakNumber)},
      .fingerprint = *fingerprintNumber,
      .text = std::u16string(rest)};
}

std::u16string FileNameFor(RecoveryName name) {
  return Decimal(name.session) + u"-" + Decimal(name.number) + std::u16string(kExtension);
}

std::optional<RecoveryName> ParseRecoveryName(std::u16string_view fileName) {
  if (!fileName.ends_with(kExtension)) return std::nullopt;
  fileName.remove_suffix(kExtension.size());
  const std::size_t dash = fileName.find(u'-');
  if (dash == std::u16string_view::npos) return std::nullopt;
  constexpr std::uint64_t kMost = 1'000'000'000;
  const auto session = ParseNumberFrom(fileName.substr(0, dash), 1, kMost);
  const auto number = ParseNumberFrom(fileName.substr(dash + 1), 1, kMost);
  if (!session || !number) return std::nullopt;
  return RecoveryName{*session, *number};
}

}  // namespace deck
