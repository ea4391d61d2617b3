#!/usr/bin/env python3
"""Runs all desktop tests and counts their cases.

    run.py LOG_DIR

What failed and why something was skipped goes to the standard output, everything to
LOG_DIR/desktop.log and the three sums "passed failed skipped" to LOG_DIR/desktop.counts.
"""

import sys
import unittest
from pathlib import Path


def main():
    here = Path(__file__).resolve().parent
    logs = Path(sys.argv[1])
    suite = unittest.defaultTestLoader.discover(str(here))
    with open(logs / "desktop.log", "w", encoding="utf-8") as log:
        result = unittest.TextTestRunner(stream=log, verbosity=2).run(suite)

    bad = [(test, text) for test, text in result.failures + result.errors]
    bad += [(test, "passes, though it is marked as failing") for test in result.unexpectedSuccesses]
    for test, text in bad:
        print(f"FAILED {test.id()}")
        for line in text.strip().splitlines():
            print(f"    {line}")
    skipped = result.skipped + [(test, "known to fail") for test, _ in result.expectedFailures]
    for test, reason in skipped:
        print(f"skipped {test.id()}: {reason}")

    # One test may fail in several places, and one that cannot be loaded was never run.
    failed = len({test.id() for test, _ in bad})
    passed = max(result.testsRun - failed - len(skipped), 0)
    sums = f"{passed} {failed} {len(skipped)}\n"
    (logs / "desktop.counts").write_text(sums, encoding="ascii")


if __name__ == "__main__":
    main()
