// Random walks over the whole program. DECK_WALK_STEPS and DECK_WALK_SEED in the environment make
// them longer and different; a failure prints the seed and the shortest walk that fails alike.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/command_table.h"
#include "tests/model/editor_walk.h"

namespace deck {
namespace {

constexpr std::size_t kStepsOfAWalk = 500;

std::size_t FromEnvironment(const char* name, std::size_t fallback) {
  const char* text = std::getenv(name);
  return text == nullptr ? fallback : static_cast<std::size_t>(std::strtoull(text, nullptr, 10));
}

std::string Describe(std::size_t seed, const Walk& walk, WalkKind kind) {
  std::string text = "seed " + std::to_string(seed) + ", shrunk to";
  if (const auto failure = RunWalk(walk, kind)) {
    for (const std::string& name : failure->trail) text += "\n  " + name;
    text += "\n" + failure->complaint;
  }
  return text;
}

void RunWalks(std::size_t steps, WalkKind kind, CommandsDuringWaits* chosen = nullptr) {
  const std::size_t first = FromEnvironment("DECK_WALK_SEED", 1);
  for (std::size_t seed = first; (seed - first) * kStepsOfAWalk < steps; ++seed) {
    const Walk walk = MakeWalk(static_cast<std::uint32_t>(seed), kStepsOfAWalk);
    if (RunWalk(walk, kind, chosen)) FAIL() << Describe(seed, Shrink(walk, kind), kind);
  }
}

TEST(EditorWalk, NothingTypedIsLostWhateverHappens) {
  RunWalks(FromEnvironment("DECK_WALK_STEPS", 20'000), WalkKind::kEverything);
}

TEST(EditorWalk, EveryCommandCanBeChosenWhileTheCompilerIsWaitedFor) {
  CommandsDuringWaits chosen;
  RunWalks(FromEnvironment("DECK_WALK_WAITS", 2'000), WalkKind::kWaits, &chosen);
  int commands = 0;
  for (const CommandRow& row : kCommands) {
    EXPECT_GE(chosen[row.id], 20) << "command " << static_cast<int>(row.id);
    commands += chosen[row.id];
  }
  std::printf("%d commands during waits\n", commands);
}

}  // namespace
}  // namespace deck
