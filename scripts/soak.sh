#!/usr/bin/env bash
# A long life of the editor under Wine, by the messages that a user's hand causes: tells what it holds
# of the system at the end and after the first cycles, and how late its window ever answered.
#
#   soak.sh [minutes, 15 by default]
#
# Fails when handles, GDI or USER objects or threads have become more or fewer.
set -u
exec </dev/null
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
minutes=${1:-15}
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
log=build/logs/soak.log
mkdir -p build/logs
if ! { cmake --preset windows && cmake --build --preset windows -j "$(nproc)" --target editor_soak \
  all && scripts/layout.sh; } >"$log" 2>&1; then
  tail -n 20 "$log"
  exit 1
fi
scripts/wine_env.sh wine build/windows/tests/bench/editor_soak.exe "$minutes" \
  "$(printf 'Z:%s' "${PWD//\//\\}")\\out\\WrenDeck"
