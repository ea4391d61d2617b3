#include "app/hand_over.h"

#include <algorithm>

#include "platform/strings.h"

namespace deck {
namespace {

// Of the longest path that the system knows, its end included.
constexpr std::size_t kMostBytes = std::size_t{2} * 32768;

constexpr int kLooks = 80;
constexpr int kPause = 100;  // milliseconds

bool IsLetter(char16_t character) {
  const char16_t letter = ToLower(character);
  return letter >= u'a' && letter <= u'z';
}

bool StartsWithDrive(std::u16string_view path) {
  return path.size() > 3 && IsLetter(path[0]) && path[1] == u':' && path[2] == u'\\';
}

// "\\server\share\..."; a server called "." or "?" would be a device.
bool StartsWithShare(std::u16string_view path) {
  if (!path.starts_with(u"\\\\") || path.size() < 3) return false;
  const std::size_t share = path.find(u'\\', 2);
  if (share == std::u16string_view::npos || share == 2) return false;
  if (share == 3 && (path[2] == u'.' || path[2] == u'?')) return false;
  const std::size_t rest = path.find(u'\\', share + 1);
  return rest != std::u16string_view::npos && rest > share + 1 && rest + 1 < path.size();
}

bool IsForbidden(char16_t character) {
  return character < u' ' ||
         std::u16string_view(u"\"*/:<>?|").find(character) != std::u16string_view::npos;
}

bool IsPathOfAFile(std::u16string_view path) {
  const bool hasDrive = StartsWithDrive(path);
  if (!hasDrive && !StartsWithShare(path)) return false;
  return std::ranges::none_of(path.substr(hasDrive ? 2 : 0), IsForbidden);
}

std::u16string Text(std::string_view bytes) {
  std::u16string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    text += static_cast<char16_t>(low | high << 8U);
  }
  return text;
}

}  // namespace

std::string EncodeHandOver(std::u16string_view path) {
  std::string bytes;
  for (const char16_t unit : path) {
    bytes += static_cast<char>(unit & 0xFFU);
    bytes += static_cast<char>(unit >> 8U);
  }
  return bytes.append(2, '\0');
}

std::optional<std::u16string> DecodeHandOver(std::uint64_t kind, std::string_view bytes) {
  if (kind != kHandOverKind || bytes.size() > kMostBytes || bytes.size() % 2 != 0) {
    return std::nullopt;
  }
  std::u16string text = Text(bytes);
  if (text.empty() || text.back() != u'\0') return std::nullopt;
  text.pop_back();
  if (!text.empty() && !IsPathOfAFile(text)) return std::nullopt;
  return text;
}

HandOverAnswer AnswerHandOver(std::uint64_t kind, std::string_view bytes, EditorState state) {
  const std::optional<std::u16string> path = DecodeHandOver(kind, bytes);
  if (!path) return {};
  const bool takesIt = path->empty() ? state != EditorState::kClosed : state == EditorState::kIdle;
  if (!takesIt) return {HandOverReply::kBusy, false, {}};
  return {HandOverReply::kTaken, true, *path};
}

StartAs HandOver(std::u16string_view path, const OtherEditor& other) {
  if (other.claim(0)) return StartAs::kOnlyEditor;
  // First only to the front: one that is asked a question there gets its answer sooner.
  std::string message = EncodeHandOver({});
  bool inFront = false;
  for (int look = 0; look < kLooks; ++look) {
    std::optional<HandOverReply> reply = other.tell(message);
    if (reply == HandOverReply::kTaken && !inFront && !path.empty()) {
      inFront = true;
      message = EncodeHandOver(path);
      reply = other.tell(message);
    }
    if (reply == HandOverReply::kTaken) return StartAs::kHandedOver;
    if (reply == HandOverReply::kRefused) return StartAs::kBesideOthers;
    if (other.claim(kPause)) return StartAs::kOnlyEditor;
  }
  return StartAs::kBesideOthers;
}

std::u16string OnlyEditorName(std::u16string_view folder) {
  // Names of the system's objects are short and hold no "\": this is the folder's FNV-1a hash.
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char16_t character : ToLower(folder)) {
    hash = (hash ^ character) * 0x100000001B3;
  }
  return u"WrenDeck-" + Decimal(static_cast<std::int64_t>(hash >> 1U));
}

}  // namespace deck
