#!/usr/bin/env bash
# Builds and runs the benchmarks and prints their tables: texts natively, then windows under Wine.
# docs/performance.md tells what is compared with what. Run it while nothing else needs the machine.
#
#   scripts/bench.sh            everything
#   scripts/bench.sh native     what needs no Windows
#   scripts/bench.sh windows    the program and its edit box
#
# The exit status is 0 only when every benchmark ran. A bound that is missed is told in the tables and
# is no error: how fast a machine is today is no property of the program.
set -u
exec </dev/null
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
root=$PWD
log=$root/build/logs/bench.log
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
failed=0

Fail() {
  printf 'FAILED %s\n' "$1"
  failed=1
}

# Build <preset> <targets...>
Build() {
  if cmake --preset "$1" >"$log" 2>&1 &&
    cmake --build --preset "$1" -j "$(nproc)" --target "${@:2}" >>"$log" 2>&1; then
    return 0
  fi
  tail -n 20 "$log"
  Fail "to build the benchmarks of $1"
  return 1
}

Native() {
  Build native native_bench || return
  printf '== texts, native\n'
  build/native/tests/bench/native_bench --benchmark_color=false 2>&1 || Fail native_bench
}

# RunWindows <name> [arguments...]: these end with 1 when they ran but a bound was missed.
RunWindows() {
  printf '\n== %s, under Wine\n' "$1"
  wine "build/windows/tests/bench/$1.exe" "${@:2}"
  [ $? -le 1 ] || Fail "$1"
}

Windows() {
  local lacking
  # shellcheck source=scripts/wine_env.sh
  source scripts/wine_env.sh
  if lacking=$(WineMissing); then
    Fail "the benchmarks under Wine: $lacking"
    return
  fi
  Build windows editor_bench edit_box_bench editing_bench \
    bin/WrenDeck.exe standins/all || return
  scripts/layout.sh >>"$log" 2>&1 || Fail 'to lay the program out'
  if ! WineBegin private >>"$log" 2>&1; then
    Fail 'to start Wine'
    return
  fi
  RunWindows editor_bench "$(winepath -w "$root/out/WrenDeck/WrenDeck.exe")"
  RunWindows edit_box_bench
  RunWindows editing_bench
  WineEnd
}

mkdir -p build/logs
printf 'load of the machine before the run: %s\n' "$(cut -d' ' -f1-3 /proc/loadavg)"
case "${1:-}" in
  '')
    Native
    Windows
    ;;
  native) Native ;;
  windows) Windows ;;
  *)
    sed -n '2,10s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
printf '\nload of the machine after the run: %s\n' "$(cut -d' ' -f1-3 /proc/loadavg)"
exit $failed
