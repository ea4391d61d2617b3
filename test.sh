#!/usr/bin/env bash
# Builds everything and runs every check; the last line says how many cases passed, failed and were
# skipped, and the exit status is 0 only when none failed.
#
#   ./test.sh           everything
#   ./test.sh --quick   what needs no Windows: native suites, format, layers
#
# Logs go to build/logs; whatever failed is printed here as well.
set -u
exec </dev/null
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
root=$PWD
logs=$root/build/logs
jobs=$(nproc)

quick=no
case "${1:-}" in
  '') ;;
  --quick) quick=yes ;;
  *)
    sed -n '2,8s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

# A compiled file is the same one in whatever directory the tree stands.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1

passed=0 failed=0 skipped=0
summary=()

# Count <kind> <passed> <failed> <skipped> <seconds>
Count() {
  passed=$((passed + $2)) failed=$((failed + $3)) skipped=$((skipped + $4))
  summary+=("$(printf '%-22s %6d passed %4d failed %4d skipped %5d s' "$@")")
}

Say() { printf '== %s\n' "$1"; }

# The lines of a log that say what went wrong, or its end where none does so in plain words.
ShowLog() {
  { grep -E 'error:|FAILED|undefined reference|warning:' "$1" || tail -n 60 "$1"; } |
    head -n 60 | sed 's/^/    /'
}

# Beside <function>: runs it at low priority beside what follows, until Join counts what it counted.
Beside() {
  rm -f "$logs/beside.counts"
  (
    renice -n 19 $BASHPID >/dev/null
    passed=0 failed=0 skipped=0 summary=()
    "$1"
    printf '%s\n' "$passed $failed $skipped" "${summary[@]}" >"$logs/beside.counts"
  ) >"$logs/beside.log" 2>&1 &
  besidePid=$!
}

Join() {
  local p f s kinds
  wait "$besidePid"
  cat "$logs/beside.log"
  if ! { read -r p f s && mapfile -t kinds; } <"$logs/beside.counts"; then
    printf 'FAILED: what ran beside the windows ended early\n'
    p=0 f=1 s=0 kinds=()
  fi
  passed=$((passed + p)) failed=$((failed + f)) skipped=$((skipped + s))
  summary+=("${kinds[@]}")
}

# Skip <kind> <reason>
Skip() {
  Say "$1"
  printf 'skipped %s: %s\n' "$1" "$2"
  Count "$1" 0 0 1 0
}

# Run <kind> <cases> <command...>: so many passed cases when the command succeeds, else a failed one.
Run() {
  local kind=$1 cases=$2 start=$SECONDS log=$logs/${1// /-}.log
  shift 2
  Say "$kind"
  if "$@" >"$log" 2>&1; then
    Count "$kind" "$cases" 0 0 $((SECONDS - start))
  else
    printf 'FAILED %s (%s)\n' "$kind" "${log#"$root"/}"
    ShowLog "$log"
    Count "$kind" 0 1 0 $((SECONDS - start))
    return 1
  fi
}

# Check <kind> <command...>
Check() { Run "$1" 1 "${@:2}"; }

# Build <preset>: no case of its own, but a failed one where a program does not build that no suite
# would miss.
Build() { Run "build $1" 0 BuildPreset "$1"; }

BuildPreset() {
  cmake --preset "$1" && cmake --build --preset "$1" -j "$jobs" -- -k 0
}

# Adds what a runner left in its counts file; a runner that left none is a failure.
CountRunner() {
  local kind=$1 file=$2 start=$3 p f s
  if [ -s "$file" ] && read -r p f s <"$file"; then
    Count "$kind" "$p" "$f" "$s" $((SECONDS - start))
  else
    printf 'FAILED %s: the run ended early\n' "$kind"
    Count "$kind" 0 1 0 $((SECONDS - start))
  fi
}

# Suites <kind> <preset> [command that runs them]
Suites() {
  local start=$SECONDS
  Say "$1"
  rm -f "$logs/$1.counts"
  if [ -e "build/$2/CTestTestfile.cmake" ]; then
    "${@:3}" python3 scripts/run_suites.py "build/$2" "$logs" "$1" "$jobs"
  fi
  CountRunner "$1" "$logs/$1.counts" "$start"
}

# DesktopLane <lane>: this lane's share of the desktop tests, in the display and prefix that stand.
DesktopLane() {
  rm -f "$logs/desktop-$1.counts"
  timeout 900 python3 tests/desktop/run.py "$logs" "$1"
}

# SecondLane: desktop tests on a display and in a prefix of its own.
SecondLane() (
  export DECK_LANE=2
  # shellcheck source=scripts/wine_env.sh
  source scripts/wine_env.sh
  WineBegin private || exit
  DesktopLane 2
)

# Packages: what is given to users, installed and removed; the 32-bit program takes too long to build.
Packages() {
  local start=$SECONDS
  Has packages makensis && Has packages cmark-gfm && Has packages xdotool || return
  Say packages
  rm -rf "$logs"/packaging*
  timeout 600 python3 tests/desktop/run.py "$logs" 1 packaging
  CountRunner packages "$logs/packaging-1.counts" "$start"
}

FormatCheck() {
  git ls-files -z -- '*.h' '*.cpp' | xargs -0 -r clang-format --dry-run -Werror
}

# With nothing suppressed.
Cppcheck() {
  cppcheck --quiet --error-exitcode=1 -j "$jobs" --platform=win64 --std=c++20 \
    --enable=warning,portability -I. \
    platform documents macros tools compiler find keytest help app standins
}

# Has <kind> <program>: whether the program is there; otherwise counts the kind as skipped.
Has() {
  command -v "$2" >/dev/null || {
    Skip "$1" "$2 is not installed"
    return 1
  }
}

Static() {
  Has format clang-format && Check format FormatCheck
  Check 'layers self-test' scripts/check_layers.sh --self-test
  Check layers scripts/check_layers.sh
  Has cppcheck cppcheck && Check cppcheck Cppcheck
}

# Each transformation of texts for 10 seconds; scripts/fuzz.sh runs them as long as wanted.
FuzzTargets() {
  local lacking start=$SECONDS
  if lacking=$(scripts/fuzz.sh --lacking); then
    Skip fuzz "$lacking"
    return
  fi
  Say fuzz
  rm -f "$logs/fuzz.counts"
  scripts/fuzz.sh 10
  CountRunner fuzz "$logs/fuzz.counts" "$start"
}

SkipAll() {
  local reason=$1 kind
  shift
  for kind in "$@"; do Skip "$kind" "$reason"; done
}

BuildWindows() {
  local check
  if ! command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
    SkipAll 'the mingw-w64 compiler is not installed' 'build windows' 'exe'
    return
  fi
  Build windows
  Check 'exe self-test' scripts/check_exe.sh --self-test
  for check in size imports protection sections; do
    Check "exe $check" scripts/check_exe.sh build/windows/bin/WrenDeck.exe "$check"
  done
}

# The suites with windows, and the desktop tests in two lanes: they wait for windows most of the
# time, so one alone leaves the machine idle.
WindowsTests() {
  local lacking start second=''
  # shellcheck source=scripts/wine_env.sh
  source scripts/wine_env.sh
  if ! command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
    SkipAll 'the mingw-w64 compiler is not installed' windows desktop packages
    return
  fi
  if lacking=$(WineMissing); then
    SkipAll "$lacking" windows desktop packages
    return
  fi
  Say 'start wine'
  if ! WineBegin private >"$logs/wine.log" 2>&1; then
    printf 'FAILED start wine\n'
    ShowLog "$logs/wine.log"
    Count 'start wine' 0 1 0 0
    SkipAll 'wine did not start' windows desktop packages
    return
  fi
  if Has desktop xdotool; then
    if ! scripts/layout.sh >"$logs/layout.log" 2>&1; then
      ShowLog "$logs/layout.log" # the tests of the program will say that it is not there
    fi
    rm -rf "$logs/desktop.taken" "$logs"/desktop*.counts
    SecondLane >"$logs/second-lane.log" 2>&1 &
    second=$!
  fi
  Suites windows windows scripts/small_disk.sh
  if [ -n "$second" ]; then
    start=$SECONDS
    Say desktop
    DesktopLane 1
    wait "$second"
    cat "$logs/second-lane.log"
    CountRunner 'desktop, lane 1' "$logs/desktop-1.counts" "$start"
    CountRunner 'desktop, lane 2' "$logs/desktop-2.counts" "$start"
  fi
  Packages
  WineEnd
}

# What needs only the processor goes on behind the windows' backs, when they leave it idle.
BehindWindows() {
  Has clang-tidy clang-tidy && Check clang-tidy scripts/check_tidy.py build/native-asan
  FuzzTargets
}

mkdir -p "$logs"
scripts/setup.sh

Build native-asan
Suites native native-asan
Static
if [ $quick = no ]; then
  BuildWindows
  Beside BehindWindows
  WindowsTests
  Join
fi

Say summary
printf '%s\n' "${summary[@]}"
printf '%d s in all\n' "$SECONDS"
printf '%d passed, %d failed, %d skipped\n' "$passed" "$failed" "$skipped"
[ "$failed" = 0 ]
