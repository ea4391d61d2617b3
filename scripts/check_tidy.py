#!/usr/bin/env python3
"""Runs clang-tidy over the program's own sources, two files at a time.

    check_tidy.py NATIVE_BUILD_DIR [FILE...]

Portable sources are read as the native build reads them, those in win32/ folders as the Windows
build does. A file that was clean is not read again before it, a header it includes, the rules or
the way it is compiled has changed; that is remembered in the user's cache directory, so that it
holds in a fresh clone as well. Prints the complaints; fails when there are any.
"""

import concurrent.futures
import glob
import hashlib
import json
import os
import re
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CACHE = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache") / "wrendeck" / "tidy"
KEPT_FOR = 30 * 24 * 3600  # seconds since the last use
FOLDERS = ["platform", "documents", "macros", "tools", "compiler", "find", "keytest", "help", "app",
           "standins"]
WINDOWS_DEFINITIONS = ["UNICODE", "_UNICODE", "NOMINMAX", "WIN32_LEAN_AND_MEAN", "_WIN32_WINNT=0x0601"]
JOBS = 2


def sources():
    tracked = subprocess.run(["git", "-C", ROOT, "ls-files", "--", *[f"{f}/*.cpp" for f in FOLDERS]],
                             capture_output=True, text=True, check=True).stdout
    return [ROOT / line for line in tracked.splitlines() if (ROOT / line).exists()]


def windows_flags():
    """How clang reads Windows sources with the headers of mingw's GCC, or None without them.

    GCC's own include directory stays out: its intrinsics are not for clang.
    """
    gcc = sorted(glob.glob("/usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++"))
    if not gcc:
        return None
    return ["--target=x86_64-w64-mingw32", "-std=c++20", "-nostdinc++",
            "-isystem", gcc[-1], "-isystem", f"{gcc[-1]}/x86_64-w64-mingw32",
            "-isystem", "/usr/x86_64-w64-mingw32/include", f"-I{ROOT}",
            *[f"-D{definition}" for definition in WINDOWS_DEFINITIONS]]


class Tidy:
    def __init__(self, native_build):
        self.native_build = native_build
        self.rules = (ROOT / ".clang-tidy").read_text(encoding="utf-8")
        self.version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True,
                                      check=True).stdout
        self.windows = windows_flags()
        database = json.loads((native_build / "compile_commands.json").read_text(encoding="utf-8"))
        self.native = {entry["file"]: re.sub(r" -o \S+", "", entry["command"]) for entry in database}

    def arguments(self, source):
        """The end of clang-tidy's command line for this file, or None where it cannot be read."""
        if str(source) in self.native:
            return ["-p", str(self.native_build), str(source)]
        if self.windows is None:
            return None
        return [str(source), "--", *self.windows]

    def fingerprint(self, source):
        digest = hashlib.sha256()
        way = self.native.get(str(source)) or " ".join(self.windows)
        # Where the tree stands and where the objects go makes no difference to the checks.
        way = way.replace(str(ROOT), "").replace(str(self.native_build), "")
        for text in (self.version, self.rules, way):
            digest.update(text.encode())
        for path in self.with_own_headers(source):
            digest.update(str(path.relative_to(ROOT)).encode())
            digest.update(path.read_bytes())
        return digest.hexdigest()

    def with_own_headers(self, source):
        """The file and every header of the repository that it includes, directly or not."""
        seen, waiting = set(), [source]
        while waiting:
            path = waiting.pop()
            if path in seen or not path.is_file():
                continue
            seen.add(path)
            text = path.read_text(encoding="utf-8", errors="replace")
            waiting += [ROOT / name for name in re.findall(r'^\s*#\s*include\s*"([^"]+)"', text, re.M)]
        return sorted(seen)

    def check(self, source):
        """The complaints about one file; empty when there are none."""
        stamp = CACHE / self.fingerprint(source)
        if stamp.exists():
            stamp.touch()
            return ""
        run = subprocess.run(["clang-tidy", "--quiet", *self.arguments(source)], cwd=ROOT,
                             capture_output=True, text=True, stdin=subprocess.DEVNULL, check=False)
        if run.returncode == 0:
            stamp.touch()
            return ""
        return run.stdout.strip() or run.stderr.strip()


def forget_old_stamps():
    for stamp in CACHE.iterdir():
        if time.time() - stamp.stat().st_mtime > KEPT_FOR:
            stamp.unlink(missing_ok=True)


def main():
    native_build = Path(sys.argv[1]).resolve()
    files = [Path(name).resolve() for name in sys.argv[2:]] or sources()
    CACHE.mkdir(parents=True, exist_ok=True)
    forget_old_stamps()
    tidy = Tidy(native_build)
    readable = [file for file in files if tidy.arguments(file)]
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        complaints = [text for text in pool.map(tidy.check, readable) if text]
    for text in complaints:
        print(text)
    unread = len(files) - len(readable)
    print(f"clang-tidy: {len(readable)} files, {len(complaints)} with complaints"
          + (f", {unread} not read for want of the Windows headers" if unread else ""))
    sys.exit(1 if complaints else 0)


if __name__ == "__main__":
    main()
