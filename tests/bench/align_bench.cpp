// The editing tools. Bytes are those of a file in the system's code page: one for each character.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "platform/text_edits.h"
#include "tools/align_slashes.h"
#include "tools/block_rem.h"

namespace deck {
namespace {

constexpr std::size_t kMost = 10'000'000;

std::u16string Repeated(std::u16string_view part, std::size_t size) {
  std::u16string text;
  text.reserve(size + part.size());
  while (text.size() < size) text += part;
  return text;
}

// What a pilot writes before the file was ever aligned.
constexpr std::u16string_view kUntidy =
    u"Rem  ------------------ the stick and its hats ------------------\n"
    u"BTN  TG1\t/P GUN_DOWN   /R GUN_UP\n"
    u"BTN S1 /I  AUTO_GUNS_ON_THE_NEXT_TARGET_BUT_ONE\n"
    u"  /O AUTO_SEARCH\n"
    u"\n"
    u"BTN H2U\t/U LONG_RANGE_SCAN_OF_THE_SECTOR\n"
    u"/M VIEW_TRACK\n"
    u"\t\t\t/D MAP_RANGE_OUT   \n"
    u"THR   32768  /* idle   cut-off */\n"
    u"WINGS_LEVEL = CTL  a  DLY(60) SHF  b     rem as the book has it\n";

void SetCost(benchmark::State& state, std::size_t characters) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(characters));
  state.SetComplexityN(static_cast<std::int64_t>(characters));
}

void Align(benchmark::State& state, std::u16string_view part) {
  const std::u16string text = Repeated(part, static_cast<std::size_t>(state.range(0)));
  const AlignOptions options{.indent = true, .indentSpaces = 5};
  for (auto _ : state) benchmark::DoNotOptimize(AlignSlashes(text, options));
  SetCost(state, text.size());
}

void BM_AlignUntidyFile(benchmark::State& state) {
  Align(state, kUntidy);
}
BENCHMARK(BM_AlignUntidyFile)->RangeMultiplier(10)->Range(10'000, kMost)->Complexity();

void BM_AlignTidyFile(benchmark::State& state) {
  Align(state, AlignSlashes(kUntidy, {.indent = true, .indentSpaces = 5}));
}
BENCHMARK(BM_AlignTidyFile)->Arg(kMost);

void BM_AlignOneLine(benchmark::State& state) {
  Align(state, u"BTN /I a   /O b ");
}
BENCHMARK(BM_AlignOneLine)->RangeMultiplier(10)->Range(10'000, kMost)->Complexity();

void BM_AlignNothingButSlashes(benchmark::State& state) {
  Align(state, u"/I/O/U/");
}
BENCHMARK(BM_AlignNothingButSlashes)->Arg(kMost);

void BM_AlignContinuationLines(benchmark::State& state) {
  Align(state, u"/I a\n/O b\n");
}
BENCHMARK(BM_AlignContinuationLines)->RangeMultiplier(10)->Range(10'000, kMost)->Complexity();

void BM_AlignEmptyLines(benchmark::State& state) {
  Align(state, u"\n");
}
BENCHMARK(BM_AlignEmptyLines)->Arg(kMost);

void BM_EditsOfAnAlignment(benchmark::State& state) {
  const std::u16string text = Repeated(kUntidy, static_cast<std::size_t>(state.range(0)));
  const std::u16string aligned = AlignSlashes(text, {});
  for (auto _ : state) benchmark::DoNotOptimize(BlankEdits(text, aligned));
  SetCost(state, text.size());
}
BENCHMARK(BM_EditsOfAnAlignment)->RangeMultiplier(10)->Range(10'000, kMost)->Complexity();

void BM_RemSteps(benchmark::State& state) {
  const std::u16string text = Repeated(kUntidy, static_cast<std::size_t>(state.range(0)));
  const TextSpan all{0, static_cast<int>(text.size())};
  for (auto _ : state) benchmark::DoNotOptimize(RemSteps(text, all));
  SetCost(state, text.size());
}
BENCHMARK(BM_RemSteps)->RangeMultiplier(10)->Range(10'000, kMost)->Complexity();

void BM_UnRemSteps(benchmark::State& state) {
  const std::u16string text =
      Repeated(u"Rem BTN S1 FIRE\nrem\n", static_cast<std::size_t>(state.range(0)));
  const TextSpan all{0, static_cast<int>(text.size())};
  for (auto _ : state) benchmark::DoNotOptimize(UnRemSteps(text, all));
  SetCost(state, text.size());
}
BENCHMARK(BM_UnRemSteps)->RangeMultiplier(10)->Range(10'000, kMost)->Complexity();

}  // namespace
}  // namespace deck
