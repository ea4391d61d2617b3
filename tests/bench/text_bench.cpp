#include <benchmark/benchmark.h>

#include "platform/text_encoding.h"
#include "platform/text_search.h"
#include "tests/bench/bench_texts.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_edit_box.h"

namespace deck {
namespace {

std::string Bytes(const std::u16string& text) {
  FileFormat format;
  return EncodeFile(text, format, FakeCodePage());
}

void BM_DecodeFile(benchmark::State& state) {
  const FakeCodePage codePage;
  const std::string bytes = Bytes(JoystickFileText(static_cast<int>(state.range(0))));
  for (auto _ : state) benchmark::DoNotOptimize(DecodeFile(bytes, codePage));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_DecodeFile)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

void BM_EncodeFile(benchmark::State& state) {
  const FakeCodePage codePage;
  const std::u16string text = JoystickFileText(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    FileFormat format;
    benchmark::DoNotOptimize(EncodeFile(text, format, codePage));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_EncodeFile)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

void BM_FindAMiss(benchmark::State& state) {
  const std::u16string text = JoystickFileText(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(FindInText(text, u"not there", 0, static_cast<int>(text.size()), 0));
  }
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(text.size() * sizeof(char16_t)));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_FindAMiss)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

// The line index of the box in memory; the real one's is measured under Windows.
void BM_LineIndexAtTheEnd(benchmark::State& state) {
  FakeEditBox box;
  box.Load(JoystickFileText(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    const int line = box.LineOf(box.Length());
    benchmark::DoNotOptimize(box.StartOfLine(line));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_LineIndexAtTheEnd)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

}  // namespace
}  // namespace deck
