#include <benchmark/benchmark.h>

#include "find/replace_all.h"
#include "platform/text_edits.h"
#include "platform/text_search.h"
#include "tests/bench/bench_texts.h"

namespace deck {
namespace {

constexpr std::int64_t kBytesOfText = 10'000'000;

// As often as it takes for 10 MB in memory.
std::u16string LargeText() {
  const std::u16string part = JoystickFileText(200);
  std::u16string text;
  while (static_cast<std::int64_t>(text.size() * sizeof(char16_t)) < kBytesOfText) text += part;
  return text;
}

void SetCost(benchmark::State& state, const std::u16string& text) {
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(text.size() * sizeof(char16_t)));
}

// Every match one after the other, as a pilot would press "Find next".
void FindAll(benchmark::State& state, std::u16string_view pattern) {
  const std::u16string text = LargeText();
  const int options = static_cast<int>(state.range(0));
  const int end = static_cast<int>(text.size());
  for (auto _ : state) {
    const TextSearch search(pattern, options);
    int matches = 0;
    for (int at = search.Find(text, 0, end); at >= 0; ++matches) {
      at = search.Find(text, at + static_cast<int>(pattern.size()), end);
    }
    benchmark::DoNotOptimize(matches);
  }
  SetCost(state, text);
}
BENCHMARK_CAPTURE(FindAll, nothing, u"not there")->DenseRange(0, 6, 2);
BENCHMARK_CAPTURE(FindAll, one_in_every_line, u"\n")->DenseRange(0, 4, 4);
BENCHMARK_CAPTURE(FindAll, word, u"BTN")->DenseRange(0, 6, 2);
BENCHMARK_CAPTURE(FindAll, frequent_letter, u"e")->DenseRange(0, 6, 2);

void ReplaceAll(benchmark::State& state, std::u16string_view pattern,
                const std::u16string& replacement) {
  const std::u16string text = LargeText();
  const int options = static_cast<int>(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(ReplaceAllMatches(text, pattern, replacement, options));
  }
  SetCost(state, text);
}
BENCHMARK_CAPTURE(ReplaceAll, nothing, u"not there", u"x")->DenseRange(0, 6, 2);
BENCHMARK_CAPTURE(ReplaceAll, one_in_every_line, u"\n", u";\n")->DenseRange(0, 4, 4);
BENCHMARK_CAPTURE(ReplaceAll, word, u"BTN", u"BUTTON")->DenseRange(0, 6, 2);

// Linear: the same cost per line at every size.
void BM_ReplaceInEveryLine(benchmark::State& state) {
  const std::u16string text = JoystickFileText(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(ReplaceAllMatches(text, u"\n", u";\n", 0));
  SetCost(state, text);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ReplaceInEveryLine)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

}  // namespace
}  // namespace deck
