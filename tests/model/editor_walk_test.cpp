// Random walks over the whole program. DECK_WALK_STEPS and DECK_WALK_SEED in the environment make
// them longer and different; a failure prints the seed and the shortest walk that fails alike.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/model/editor_walk.h"

namespace deck {
namespace {

constexpr std::size_t kStepsOfAWalk = 500;

std::size_t FromEnvironment(const char* name, std::size_t fallback) {
  const char* text = std::getenv(name);
  return text == nullptr ? fallback : static_cast<std::size_t>(std::strtoull(text, nullptr, 10));
}

std::string Describe(std::size_t seed, const Walk& walk) {
  std::string text = "seed " + std::to_string(seed) + ", shrunk to";
  if (const auto failure = RunWalk(walk)) {
    for (const std::string& name : failure->trail) text += "\n  " + name;
    text += "\n" + failure->complaint;
  }
  return text;
}

TEST(EditorWalk, NothingTypedIsLostWhateverHappens) {
  const std::size_t steps = FromEnvironment("DECK_WALK_STEPS", 20'000);
  const std::size_t first = FromEnvironment("DECK_WALK_SEED", 1);
  for (std::size_t seed = first; (seed - first) * kStepsOfAWalk < steps; ++seed) {
    const Walk walk = MakeWalk(static_cast<std::uint32_t>(seed), kStepsOfAWalk);
    if (RunWalk(walk)) FAIL() << Describe(seed, Shrink(walk));
  }
  RecordProperty("steps", static_cast<int>(steps));
}

}  // namespace
}  // namespace deck
