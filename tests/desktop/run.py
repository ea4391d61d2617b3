#!/usr/bin/env python3
"""Runs the desktop tests, alone or as one of several lanes, and counts their cases.

    run.py LOG_DIR LANE [KIND]

KIND names the folder of the tests beside this one, "desktop" by default; the files below are called
after it.

Lanes are processes with a display and a Wine prefix each, which share the test classes: a lane takes
one that no other has taken, until none is left. Whoever starts the lanes removes
LOG_DIR/desktop.taken before.

What failed and why something was skipped goes to the standard output, everything to
LOG_DIR/desktop-LANE.log and the three sums "passed failed skipped" to LOG_DIR/desktop-LANE.counts.
"""

import sys
import time
import unittest
from pathlib import Path

SLOW = 5  # seconds; such a test is named in the log


class TimedResult(unittest.TextTestResult):
    """Says which tests took long."""

    def startTest(self, test):
        self._started = time.monotonic()
        super().startTest(test)

    def stopTest(self, test):
        super().stopTest(test)
        seconds = time.monotonic() - self._started
        if seconds > SLOW:
            self.stream.writeln(f"    {seconds:.1f} s")


def classes(suite):
    """The tests of each class, or what stands for a module that could not be loaded."""
    found = {}
    for test in flat(suite):
        found.setdefault(test.id().rpartition(".")[0], unittest.TestSuite()).addTest(test)
    # Those with many tests first, so that no lane is left with a long one at the end.
    return sorted(found.items(), key=lambda item: -item[1].countTestCases())


def flat(suite):
    for part in suite:
        if isinstance(part, unittest.TestSuite):
            yield from flat(part)
        else:
            yield part


def take(folder, name):
    """Whether no lane had taken it yet."""
    try:
        (folder / name).touch(exist_ok=False)
    except FileExistsError:
        return False
    return True


class Untaken(unittest.TestSuite):
    """Decides about each class when its turn comes."""

    def __init__(self, suite, folder):
        super().__init__()
        self._classes = classes(suite)
        self._folder = folder

    def run(self, result, debug=False):
        for name, tests in self._classes:
            if take(self._folder, name):
                tests.run(result, debug)
        return result


def main():
    logs, lane = Path(sys.argv[1]), sys.argv[2]
    kind = sys.argv[3] if len(sys.argv) > 3 else "desktop"
    here = Path(__file__).resolve().parent.parent / kind
    taken = logs / f"{kind}.taken"
    taken.mkdir(parents=True, exist_ok=True)
    suite = Untaken(unittest.defaultTestLoader.discover(str(here)), taken)
    with open(logs / f"{kind}-{lane}.log", "w", encoding="utf-8") as log:
        result = unittest.TextTestRunner(stream=log, verbosity=2, resultclass=TimedResult).run(suite)

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
    (logs / f"{kind}-{lane}.counts").write_text(sums, encoding="ascii")


if __name__ == "__main__":
    main()
