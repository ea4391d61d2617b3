#!/usr/bin/env python3
"""Runs the suites of one build directory through ctest and counts their cases.

    run_suites.py BUILD_DIR LOG_DIR KIND [JOBS]

A GoogleTest suite counts case by case from the results that it leaves in BUILD_DIR/test-results; any
other ctest entry counts as one case. A suite that did not build, crashed, hung or ended with an
error that none of its cases reported is one failed case. What failed and why something was skipped
goes to the standard output, the whole log to LOG_DIR/KIND.log, and the three sums "passed failed
skipped" to LOG_DIR/KIND.counts.
"""

import json
import os
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

TAIL_LINES = 40


class Counts:
    """Sums of cases, and the text that explains those that did not pass."""

    def __init__(self):
        self.passed = self.failed = self.skipped = 0

    def fail(self, name, text):
        self.failed += 1
        print(f"FAILED {name}")
        for line in text.strip().splitlines()[-TAIL_LINES:]:
            print(f"    {line}")

    def skip(self, name, reason):
        self.skipped += 1
        # GoogleTest puts the place in a line of its own before the reason.
        words = reason.strip().splitlines() or ["no reason given"]
        print(f"skipped {name}: {words[-1]}")


def listed_tests(build):
    listing = subprocess.run(
        ["ctest", "--test-dir", build, "--show-only=json-v1"],
        capture_output=True, text=True, check=True).stdout
    return json.loads(listing).get("tests", [])


def own_program(test, build):
    """The program that the build makes for this test, relative to the build directory, or None."""
    if "command" not in test:  # ctest found no such program
        return test["name"]
    for word in test.get("command", []):
        path = Path(word)
        if build in path.parents:
            return str(path.relative_to(build))
    return None


def is_built(program, build):
    """A program left over from an earlier build must not pass for the one that failed to build."""
    plan = subprocess.run(
        ["ninja", "-C", build, "-n", program], capture_output=True, text=True, check=False)
    return "no work to do" in plan.stdout


def run_ctest(build, logs, kind, jobs, excluded):
    junit = logs / f"{kind}.junit.xml"
    junit.unlink(missing_ok=True)
    command = ["ctest", "--test-dir", str(build), "-j", jobs, "--output-on-failure",
               "--no-tests=ignore", "--output-junit", str(junit)]
    if excluded:
        command += ["-E", "^(" + "|".join(re.escape(name) for name in excluded) + ")$"]
    with open(logs / f"{kind}.log", "w", encoding="utf-8") as log:
        subprocess.run(command, stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT,
                       check=False)
    if not junit.exists():
        return {}
    root = ElementTree.fromstring(readable_xml(junit))
    return {entry.get("name"): entry for entry in root.iter("testcase")}


def readable_xml(path):
    """The file's text without the control characters that a test may print but XML does not allow."""
    text = path.read_bytes().decode("utf-8", errors="replace")
    return re.sub("[^\t\n\r\x20-\ud7ff\ue000-\ufffd\U00010000-\U0010ffff]", "?", text)


def count_cases(results, counts):
    """Adds a suite's own results; returns how many of its cases failed."""
    failed = 0
    for case in ElementTree.fromstring(readable_xml(results)).iter("testcase"):
        name = f"{case.get('classname')}.{case.get('name')}"
        failures = [failure.get("message") or "" for failure in case.findall("failure")]
        if failures:
            failed += 1
            counts.fail(name, "\n".join(failures))
        elif case.get("result") == "skipped":
            skip = case.find("skipped")
            counts.skip(name, (skip.get("message") or "") if skip is not None else "")
        elif case.get("status") == "notrun":
            counts.skip(name, "disabled")
        else:
            counts.passed += 1
    return failed


def count_suite(name, entry, results, counts):
    status = entry.get("status")
    output = entry.findtext("system-out") or ""
    if status in ("notrun", "disabled"):
        skip = entry.find("skipped")
        counts.skip(name, (skip.get("message") or "") if skip is not None else status)
        return
    complaint = entry.find("failure")
    reason = (complaint.get("message") or "failed") if complaint is not None else "failed"
    if not results.exists():
        if status == "run":
            counts.passed += 1
        else:
            counts.fail(f"{name} ({reason})", output)
        return
    if count_cases(results, counts) == 0 and status != "run":
        counts.fail(f"{name} ({reason}, though every case passed)", output)


def main():
    build, logs, kind = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve(), sys.argv[3]
    jobs = sys.argv[4] if len(sys.argv) > 4 else "1"
    logs.mkdir(parents=True, exist_ok=True)
    results = build / "test-results"
    for old in results.glob("*.xml"):
        old.unlink()

    counts = Counts()
    tests = listed_tests(build)
    unbuilt = []
    for test in tests:
        program = own_program(test, build)
        if program and not is_built(program, build):
            unbuilt.append(test["name"])
            counts.fail(test["name"], "did not build")

    entries = run_ctest(build, logs, kind, jobs, unbuilt)
    for test in tests:
        name = test["name"]
        if name in unbuilt:
            continue
        if name in entries:
            count_suite(name, entries[name], results / f"{name}.xml", counts)
        else:
            counts.fail(name, "ctest did not run it")

    sums = f"{counts.passed} {counts.failed} {counts.skipped}\n"
    (logs / f"{kind}.counts").write_text(sums, encoding="ascii")


if __name__ == "__main__":
    main()
