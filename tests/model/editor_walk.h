// A random walk through everything a user, the disk and other programs can do to the editor,
// watched by the model. A walk is a list of numbers, one for each step; a step draws all that it
// needs from its own number, so steps can be left out and the others stay what they were.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/command_id.h"

namespace deck {

using Walk = std::vector<std::uint32_t>;

enum class WalkKind {
  kEverything,
  // Compiles and downloads, one inside the other, with everything else chosen while they wait.
  kWaits,
};

// How often each command was chosen while another one waited for the compiler.
using CommandsDuringWaits = std::map<CommandId, int>;

// What did not hold, after which step and what was done last; nothing when all went well.
struct WalkFailure {
  std::size_t step = 0;  // from 0
  std::string complaint;
  std::vector<std::string> trail;  // names of the steps, the failing one last
};

Walk MakeWalk(std::uint32_t seed, std::size_t steps);
std::optional<WalkFailure> RunWalk(const Walk& walk, WalkKind kind = WalkKind::kEverything,
                                   CommandsDuringWaits* chosen = nullptr);
// A shorter walk that fails too: no step can be left out of it.
Walk Shrink(Walk walk, WalkKind kind = WalkKind::kEverything);

}  // namespace deck
