#!/usr/bin/env bash
# Builds the fuzz targets and runs each for a while, two at a time, from the inputs in
# tests/fuzz/corpus and those that earlier runs found (build/fuzz-corpus, where new ones go too). An
# input that breaks a rule is left in build/fuzz-findings, what the fuzzer says in build/logs.
#
#   fuzz.sh [seconds for each target, 20 by default] [target...]
#   fuzz.sh --lacking     only prints what is lacking to build them; fails when nothing is
#
# The three sums "passed failed skipped" of the targets go to build/logs/fuzz.counts.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
logs=build/logs

Lacking() {
  command -v clang++ >/dev/null || {
    printf 'clang++ is not installed\n'
    return
  }
  ! printf 'extern "C" int LLVMFuzzerTestOneInput(const char*, long) { return 0; }' |
    clang++ -x c++ -fsanitize=fuzzer,address -o /dev/null - 2>/dev/null || return 1
  printf "clang's fuzzer library is not installed\n"
}

BuildTargets() {
  cmake --preset fuzz && cmake --build --preset fuzz -j "$(nproc)"
}

# Fuzz <target> <seconds>: leaves "passed" or "failed" in the target's result file.
Fuzz() {
  local log=build/logs/fuzz-$1.log result=build/fuzz-findings/$1.result words=failed spent
  mkdir -p "build/fuzz-corpus/$1"
  # The first folder is written to, the second only read.
  spent=$(
    exec 2>&1
    TIMEFORMAT='%R %U %S'
    time "build/fuzz/tests/fuzz/$1" -max_total_time="$2" -max_len=2048 -timeout=30 -verbosity=0 \
      -print_funcs=0 -print_final_stats=1 -artifact_prefix="build/fuzz-findings/$1-" \
      "build/fuzz-corpus/$1" "tests/fuzz/corpus/$1" >"$log" 2>&1
  ) && words=passed
  printf '%s\n' "$words" >"$result"
  spent=$(awk '{ printf "%.0f s, %.1f s of the processor", $1, $2 + $3 }' <<<"$spent")
  printf '%-20s %s: %s inputs in %s\n' "$1" "$words" \
    "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" "$spent"
  [ "$words" = passed ] || tail -n 30 "$log" | sed 's/^/    /'
}
export -f Fuzz

if [ "${1:-}" = --lacking ]; then
  Lacking
  exit
fi
seconds=${1:-20}
shift $(($# > 0 ? 1 : 0))

mkdir -p "$logs" build/fuzz-findings
rm -f "$logs/fuzz.counts" build/fuzz-findings/*.result
if ! BuildTargets >"$logs/fuzz-build.log" 2>&1; then
  tail -n 30 "$logs/fuzz-build.log"
  exit 1
fi

targets=("$@")
if [ ${#targets[@]} = 0 ]; then
  for program in build/fuzz/tests/fuzz/*_fuzz; do targets+=("$(basename "$program")"); done
fi
printf '%s\n' "${targets[@]}" | xargs -P 2 -I{} bash -c 'Fuzz "$@"' _ {} "$seconds"

passed=$(cat build/fuzz-findings/*.result | grep -c passed)
failed=$((${#targets[@]} - passed))
printf '%d %d 0\n' "$passed" "$failed" >"$logs/fuzz.counts"
[ "$failed" = 0 ]
