// Any bytes can lie in the folder of unsaved texts; any text comes back from there.
#include <cstdint>
#include <string_view>

#include "documents/recovery_file.h"
#include "tests/fuzz/fuzz_input.h"

namespace deck {
namespace {

void Read(std::string_view bytes) {
  const auto recovered = DecodeRecoveryFile(bytes);
  // The form is the only one that this text has.
  if (recovered) Require(EncodeRecoveryFile(*recovered) == bytes);
}

}  // namespace
}  // namespace deck

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  deck::Read({reinterpret_cast<const char*>(bytes), size});
  deck::FuzzInput input(bytes, size);
  deck::RecoveryText text;
  text.format = {static_cast<deck::Encoding>(input.Byte() % 6),
                 static_cast<deck::LineBreak>(input.Byte() % 3)};
  text.fingerprint = static_cast<std::uint64_t>(input.Number());
  text.text = input.Text();
  if (text.text.find(u'\0') != std::u16string::npos) return 0;
  const std::string written = deck::EncodeRecoveryFile(text);
  deck::Require(deck::DecodeRecoveryFile(written) == text);
  // One byte of the head changed, as a bad disk would.
  std::string spoilt = written;
  spoilt[static_cast<std::size_t>(input.Number()) % spoilt.size()] ^= 1;
  deck::Read(spoilt);
  return 0;
}
