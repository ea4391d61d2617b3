#include <benchmark/benchmark.h>

#include "macros/detect_macro_file.h"
#include "macros/extract_macros.h"
#include "tests/bench/bench_texts.h"

namespace deck {
namespace {

void SetCost(benchmark::State& state, const std::u16string& text) {
  state.SetComplexityN(state.range(0));
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(text.size() * sizeof(char16_t)));
}

void BM_ExtractMacros(benchmark::State& state) {
  const std::u16string text = MacroFileText(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(ExtractMacrosAndTitles(GetEachLineFromMacroFile(text)));
  }
  SetCost(state, text);
}
BENCHMARK(BM_ExtractMacros)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

void BM_DefinitionOfTheLastMacro(benchmark::State& state) {
  const MacroLines lines =
      GetEachLineFromMacroFile(MacroFileText(static_cast<int>(state.range(0))) + u"LAST = x\n");
  for (auto _ : state) benchmark::DoNotOptimize(DefinitionOf(lines, u"LAST"));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_DefinitionOfTheLastMacro)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

void BM_DetectMacroFile(benchmark::State& state) {
  const std::u16string text = JoystickFileText(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(FindMacroFileName(text));
  SetCost(state, text);
}
BENCHMARK(BM_DetectMacroFile)->RangeMultiplier(10)->Range(200, 200'000)->Complexity();

}  // namespace
}  // namespace deck
