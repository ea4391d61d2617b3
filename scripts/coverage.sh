#!/usr/bin/env bash
# Counts which lines and branches of the portable core the native suites run, and prints what is left
# of each file that is not complete. The random walks and the inputs of the fuzz targets are left out
# at first: what only they reach has no test that says what it is for. A last line counts with them.
# Needs gcovr (Debian: gcovr).
#
# Branches are those that the source has: what the compiler adds for exceptions, and where no code
# stands, is not counted. What is left of them are mostly the compiler's own, too: it counts a branch
# for every temporary string of an expression with a condition, and one for every member that a
# defaulted == compares.
set -eu
cd "$(dirname "${BASH_SOURCE[0]}")/.."
command -v gcovr >/dev/null || {
  printf 'coverage: gcovr is not installed\n' >&2
  exit 1
}

# RunSuites <ctest options...>
RunSuites() {
  ctest --test-dir build/coverage -j "$(nproc)" --output-on-failure "$@" | tail -n 3
}

# Collect <name>: what has been run by now, in build/coverage/<name>.json.
Collect() {
  # Only the build's own folder is searched: others may hold programs of other trees.
  gcovr --root . --object-directory build/coverage --filter "($folders)/[^/]*$" \
    --exclude-throw-branches --exclude-unreachable-branches \
    --json "build/coverage/$1.json" build/coverage
}

# Report <name> <gcovr options...>
Report() {
  gcovr --root . --add-tracefile "build/coverage/$1.json" "${@:2}"
}

folders='platform|documents|macros|tools|compiler|find|keytest|help|app'
cmake --preset coverage >/dev/null
cmake --build --preset coverage -j "$(nproc)" | tail -n 1
find build/coverage -name '*.gcda' -delete

RunSuites -LE 'model|fuzz'
Collect suites
Report suites --branches --txt build/coverage/branches.txt
Report suites --print-summary --txt build/coverage/lines.txt
grep -v '100%' build/coverage/lines.txt

RunSuites -L 'model|fuzz'
Collect all
printf 'with the short walk and the inputs of the fuzz targets:\n'
Report all --print-summary --txt /dev/null
