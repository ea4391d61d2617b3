#!/usr/bin/env bash
# Builds the fuzz targets and runs each for a while, from the inputs that earlier runs found
# (build/fuzz-corpus). An input that breaks a rule is left in build/fuzz-findings.
#
#   fuzz.sh [seconds for each target, 20 by default] [target...]
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
seconds=${1:-20}
shift $(($# > 0 ? 1 : 0))

cmake --preset fuzz >/dev/null && cmake --build --preset fuzz -j "$(nproc)" || exit 1
mkdir -p build/fuzz-findings

targets=("$@")
if [ ${#targets[@]} = 0 ]; then
  for program in build/fuzz/tests/fuzz/*_fuzz; do targets+=("$(basename "$program")"); done
fi

failed=0
for target in "${targets[@]}"; do
  mkdir -p "build/fuzz-corpus/$target"
  printf '%s for %s s\n' "$target" "$seconds"
  "build/fuzz/tests/fuzz/$target" -max_total_time="$seconds" -max_len=2048 -timeout=30 \
    -print_final_stats=1 -verbosity=0 -artifact_prefix="build/fuzz-findings/$target-" \
    "build/fuzz-corpus/$target" || failed=1
done
exit $failed
