// Any bytes are a text or are refused, and no text turns into another one on its way to the disk
// and back.
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fuzz/fuzz_input.h"

namespace deck {
namespace {

bool HasLoneSurrogate(std::u16string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool high = text[i] >= 0xD800 && text[i] <= 0xDBFF;
    const bool low = text[i] >= 0xDC00 && text[i] <= 0xDFFF;
    if (low) return true;
    if (!high) continue;
    if (i + 1 == text.size() || text[i + 1] < 0xDC00 || text[i + 1] > 0xDFFF) return true;
    ++i;
  }
  return false;
}

bool IsUnmistakable(const FileFormat& format) {
  return format.encoding == Encoding::kUtf8Mark || format.encoding == Encoding::kUtf16Le ||
         format.encoding == Encoding::kUtf16Be;
}

void WriteAndRead(std::u16string_view text, FileFormat format) {
  const FakeCodePage codePage;
  const Encoding wanted = format.encoding;
  const std::string bytes = EncodeFile(text, format, codePage);
  Require(format.encoding == wanted || format.encoding == Encoding::kUtf8);
  const Result<DecodedText> back = DecodeFile(bytes, codePage);
  Require(static_cast<bool>(back));
  // Bytes without a mark may be valid in two encodings; half a pair has no form in UTF-8.
  if (IsUnmistakable(format) && !HasLoneSurrogate(text)) {
    Require(back->text == text);
    Require(back->format.encoding == format.encoding);
  }
}

void Read(std::string_view bytes) {
  const FakeCodePage codePage;
  const Result<DecodedText> decoded = DecodeFile(bytes, codePage);
  if (!decoded) {
    Require(!decoded.problem().reason.empty());
    return;
  }
  Require(decoded->text.find_first_of(std::u16string_view(u"\0\r", 2)) == std::u16string::npos);
  Require(decoded->text.size() <= bytes.size());
  WriteAndRead(decoded->text, decoded->format);
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::FuzzInput input(bytes, size);
  const deck::FileFormat format{static_cast<deck::Encoding>(input.Byte() % 6),
                                static_cast<deck::LineBreak>(input.Byte() % 3)};
  deck::Read({reinterpret_cast<const char*>(bytes), size});
  deck::WriteAndRead(input.Text(), format);
  return 0;
}
