#!/usr/bin/env bash
# The long form of the attacks that test.sh runs in short; docs/trust.md tells what they are.
#
#   trust.sh [minutes for each fuzz target and for the soak, 10 and 15 by default]
#   trust.sh short        once through everything in a few minutes
#
# Where it may (as root) it makes a disk of 256 kB to fill.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
fuzzSeconds=600 soakMinutes=15 steps=1000000 waits=100000 kills=300 editorKills=400
case "${1:-}" in
  '') ;;
  short) fuzzSeconds=10 soakMinutes=1 steps=20000 waits=2000 kills=10 editorKills=12 ;;
  *) fuzzSeconds=$((60 * $1)) soakMinutes=$1 ;;
esac
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
    DECK_WALK_STEPS=$steps DECK_WALK_WAITS=$waits DECK_WALK_SEED=$RANDOM \
      build/native/tests/model/editor_walk_test
}

# With the file system's other cases: a full disk is one of them.
Kill() {
  cmake --preset windows >/dev/null &&
    cmake --build --preset windows -j "$jobs" --target platform_contract_real_test >/dev/null &&
    DECK_KILLS=$kills scripts/small_disk.sh scripts/wine_env.sh wine \
      build/windows/tests/contract/platform_contract_real_test.exe \
      --gtest_filter='*Files*:*SmallDisk*' --gtest_brief=1
}

KillEditor() {
  cmake --preset windows >/dev/null &&
    cmake --build --preset windows -j "$jobs" --target WrenDeck standins/all desktop_probe >/dev/null &&
    scripts/layout.sh >/dev/null &&
    (cd tests/desktop && DECK_EDITOR_KILLS=$editorKills ../../scripts/wine_env.sh \
      python3 -m unittest test_kills)
}

Run "$steps random steps and $waits compiles" Walk
Run "$((2 * kills)) killed writers, and full disks" Kill
Run "$editorKills kills of the editor while it writes" KillEditor
Run "a life of $soakMinutes minutes" scripts/soak.sh "$soakMinutes"
Run "every fuzz target for $fuzzSeconds seconds" scripts/fuzz.sh "$fuzzSeconds"
printf '%d broken\n' "$failed"
[ "$failed" = 0 ]
