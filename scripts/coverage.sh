#!/usr/bin/env bash
# Counts which lines and branches of the portable core the native suites run, and prints what is left
# of each file that is not complete. The random walks are left out: what only they reach has no test
# that says what it is for. Needs gcovr (Debian: gcovr).
set -eu
cd "$(dirname "${BASH_SOURCE[0]}")/.."
command -v gcovr >/dev/null || {
  printf 'coverage: gcovr is not installed\n' >&2
  exit 1
}
cmake --preset coverage >/dev/null
cmake --build --preset coverage -j "$(nproc)" | tail -n 1
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage -j "$(nproc)" -LE model --output-on-failure | tail -n 3
folders='platform|documents|macros|tools|compiler|find|keytest|help|app'
gcovr --root . --object-directory build/coverage --filter "($folders)/[^/]*$" \
  --exclude-throw-branches --exclude-unreachable-branches \
  --print-summary --txt build/coverage/lines.txt
gcovr --root . --object-directory build/coverage --filter "($folders)/[^/]*$" \
  --exclude-throw-branches --exclude-unreachable-branches --branches \
  --txt build/coverage/branches.txt
grep -v '100%' build/coverage/lines.txt
