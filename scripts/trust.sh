#!/usr/bin/env bash
# The long form of the attacks that test.sh runs in short; docs/trust.md tells what they are.
#
#   trust.sh [minutes for each fuzz target, 10 by default]
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
minutes=${1:-10}
jobs=$(nproc)
failed=0

# Run <what> <command...>
Run() {
  local what=$1 start=$SECONDS
  shift
  if "$@"; then
    printf '%s: held (%d s)\n' "$what" $((SECONDS - start))
  else
    printf '%s: BROKEN (%d s)\n' "$what" $((SECONDS - start))
    failed=$((failed + 1))
  fi
}

Walk() {
  cmake --preset native >/dev/null &&
    cmake --build --preset native -j "$jobs" --target editor_walk_test >/dev/null &&
    DECK_WALK_STEPS=1000000 DECK_WALK_SEED=$RANDOM build/native/tests/model/editor_walk_test
}

Kill() {
  cmake --preset windows >/dev/null &&
    cmake --build --preset windows -j "$jobs" --target platform_contract_real_test >/dev/null &&
    DECK_KILLS=300 scripts/wine_env.sh wine \
      build/windows/tests/contract/platform_contract_real_test.exe --gtest_filter='*Killed*'
}

Run 'a million random steps' Walk
Run '600 killed writers' Kill
Run "every fuzz target for $minutes minutes" scripts/fuzz.sh $((60 * minutes))
printf '%d broken\n' "$failed"
[ "$failed" = 0 ]
