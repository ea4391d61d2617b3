#!/usr/bin/env bash
# Builds the editor and its stand-ins, lays them out in out/WrenDeck and starts the editor on a
# sample file.
#
# Without a display it does a user's main job on a private one instead: it opens the sample, compiles
# it, tells what the editor showed, leaves a screenshot in out/wrendeck.png and fails when something
# did not happen.
set -eu
cd "$(dirname "${BASH_SOURCE[0]}")"
sample=Files/airliner.tmj
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

scripts/setup.sh
mkdir -p build/logs
cmake --preset windows >build/logs/run-configure.log
cmake --build --preset windows -j "$(nproc)" --target WrenDeck standins desktop_probe
scripts/layout.sh

# shellcheck source=scripts/wine_env.sh
source scripts/wine_env.sh
if [ -n "${DISPLAY:-}" ] && xprop -root _NET_SUPPORTED >/dev/null 2>&1; then
  for program in wine wineserver; do
    command -v "$program" >/dev/null || {
      printf 'run: %s is not installed; out/WrenDeck is ready for a Windows machine\n' "$program" >&2
      exit 1
    }
  done
  WineBegin here
  wine out/WrenDeck/WrenDeck.exe "Z:${PWD//\//\\}\\out\\WrenDeck\\${sample//\//\\}"
else
  if lacking=$(WineMissing); then
    printf 'run: %s; out/WrenDeck is ready for a Windows machine\n' "$lacking" >&2
    exit 1
  fi
  WineBegin private
  python3 scripts/main_job.py "$sample"
fi
