"""What scripts/package.sh makes, looked into, installed and removed again."""

import hashlib
import os
import re
import shutil
import struct
import subprocess
import sys
import unittest
import zipfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "desktop"))

# Found by the path above.
import harness  # noqa: E402  pylint: disable=wrong-import-position
from harness import ROOT, DesktopTest, wait_for, windows_path  # noqa: E402

FIRST = harness.WORK / "packages" / "first"
SECOND = harness.WORK / "packages" / "second"
GUIDE = "WrenDeck guide.html"
OWN = "WrenDeck-setup"
UNINSTALL_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\WrenDeck"
CLASSES = r"HKCU\Software\Classes"
PAGES = sorted(path.name for path in (ROOT / "packaging" / "info").iterdir())
HOST_FILES = {"Wren.exe": b"not really a program", "Wren.ini": b"[Miscellaneous]\r\n"}


def missing_tools():
    lacking = [tool for tool in ("makensis", "cmark-gfm") if shutil.which(tool) is None]
    return f"not installed: {' '.join(lacking)}" if lacking else None


def make_packages(folder):
    result = subprocess.run([str(ROOT / "scripts" / "package.sh"), "--64", str(folder)],
                            stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        raise AssertionError(f"no packages: {result.stdout}{result.stderr}")


def setUpModule():
    reason = missing_tools() or harness.missing_environment()
    if reason:
        raise unittest.SkipTest(reason)
    shutil.rmtree(FIRST.parent, ignore_errors=True)
    make_packages(FIRST)
    # The second time the program is linked anew.
    (ROOT / "build" / "windows" / "bin" / "WrenDeck.exe").unlink()
    make_packages(SECOND)


def package(pattern):
    found = [path for path in FIRST.glob(pattern)]
    if len(found) != 1:
        raise AssertionError(f"{len(found)} packages are called {pattern}")
    return found[0]


def setup_program():
    return package("WrenDeck-*-setup.exe")


def version():
    return re.fullmatch(r"WrenDeck-(.*)-setup\.exe", setup_program().name).group(1)


class Contents(unittest.TestCase):
    def setUp(self):
        self.zip = zipfile.ZipFile(package(f"WrenDeck-{version()}.zip"))
        self.addCleanup(self.zip.close)
        self.program = self.zip.read("WrenDeck.exe")

    def test_the_same_commit_gives_the_same_bytes(self):
        names = sorted(path.name for path in FIRST.iterdir())
        self.assertEqual(["SHA256SUMS", f"WrenDeck-{version()}-setup.exe",
                          f"WrenDeck-{version()}.zip"], names)
        for name in names:
            self.assertTrue((FIRST / name).read_bytes() == (SECOND / name).read_bytes(), name)

    def test_the_sums_are_those_of_the_files(self):
        for line in (FIRST / "SHA256SUMS").read_text().splitlines():
            told, name = line.split()
            self.assertEqual(hashlib.sha256((FIRST / name).read_bytes()).hexdigest(), told)

    def test_the_zip_holds_the_program_its_pages_and_the_guide(self):
        names = ["WrenDeck.exe", GUIDE, *[f"Info/{page}" for page in PAGES]]
        self.assertEqual(sorted(names), self.zip.namelist())
        for page in PAGES:
            self.assertEqual((ROOT / "packaging" / "info" / page).read_bytes(),
                             self.zip.read(f"Info/{page}"))

    def test_every_date_is_that_of_the_commit(self):
        when = int(os.environ.get("SOURCE_DATE_EPOCH") or subprocess.run(
            ["git", "log", "-1", "--format=%ct"], cwd=ROOT, check=True, capture_output=True,
            text=True).stdout)
        header = struct.unpack_from("<I", self.program, 0x3C)[0]
        self.assertEqual(when, struct.unpack_from("<I", self.program, header + 8)[0])
        self.assertEqual(1, len({entry.date_time for entry in self.zip.infolist()}))

    def test_the_program_tells_nothing_of_the_machine_it_was_built_on(self):
        for encoding in ("ascii", "utf-16-le"):
            self.assertNotIn(str(ROOT).encode(encoding), self.program)
            self.assertNotIn("../tools/".encode(encoding), self.program)
        self.assertIn("tools/align_slashes.cpp".encode("utf-16-le"), self.program,
                      "no name of a source in the program: nothing is proved here")

    def test_file_names_version_resource_and_version_box_tell_one_version(self):
        def utf16(pattern):
            text = self.program.decode("utf-16-le", errors="replace")
            return re.search(pattern, text) or re.search(
                pattern, self.program[1:].decode("utf-16-le", errors="replace"))
        numbers = [int(number) for number in version().split(".")]
        box = utf16(r"version (\d+)\.(\d+)\.(\d+)\r\n")
        self.assertEqual(numbers, [int(number) for number in box.groups()])
        self.assertEqual(version(), utf16("FileVersion\0+([0-9.]+)\0").group(1))
        # VS_FIXEDFILEINFO
        place = self.program.index(struct.pack("<I", 0xFEEF04BD))
        high, low = struct.unpack_from("<II", self.program, place + 8)
        self.assertEqual([*numbers, 0], [high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF])

    def test_the_guide_is_one_page_with_its_pictures_and_no_dead_link(self):
        page = self.zip.read(GUIDE).decode("utf-8")
        guide = (ROOT / "docs" / "guide.md").read_text(encoding="utf-8")
        self.assertEqual(guide.count("!["), page.count('src="data:image/png;base64,'))
        self.assertNotIn(".md", re.sub(r'src="[^"]*"', "", page))
        names = re.findall(r' id="([^"]+)"', page)
        self.assertEqual(len(names), len(set(names)))
        self.assertLessEqual(set(re.findall(r'href="#([^"]+)"', page)), set(names))
        self.assertIn("<table>", page)


def run_wine(*words):
    return subprocess.run(["wine", *words], stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=harness.PATIENCE, check=False)


def registry_value(key, name=None):
    """The text of a value, the key's own without a name; None when there is none."""
    which = ["/ve"] if name is None else ["/v", name]
    result = run_wine("reg", "query", key, *which)
    found = re.search(r"REG_(?:SZ|DWORD) *([^\r\n]*)", result.stdout.decode("utf-8", "replace"))
    return found.group(1) if result.returncode == 0 and found else None


def set_registry_value(key, value):
    run_wine("reg", "add", key, "/ve", "/d", value, "/f")


def files_in(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes() if path.is_file() else None
            for path in folder.rglob("*")}


class SetupTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.forget()
        self.host = self.directory / "Wren"
        self.host.mkdir()
        for name, data in HOST_FILES.items():
            (self.host / name).write_bytes(data)

    def forget(self):
        """Nothing of an earlier test is known to the system."""
        keys = [UNINSTALL_KEY, *[rf"{CLASSES}\{name}" for name in
                                 (".tmj", ".tmm", "WrenDeck.tmj", "WrenDeck.tmm")]]
        script = self.directory / "forget.reg"
        script.write_text("REGEDIT4\n\n" + "".join(
            f"[-{key.replace('HKCU', 'HKEY_CURRENT_USER')}]\n" for key in keys), encoding="ascii")
        run_wine("regedit", "/S", windows_path(script))

    def install(self, *switches, folder=None):
        """Silently; gives the exit code."""
        return run_wine(str(setup_program()), "/S", *switches,
                        f"/D={windows_path(folder or self.host)}").returncode

    def uninstall(self):
        """Silently; gives the exit code of the uninstaller, which goes on as a copy of its own."""
        program = self.host / OWN / "uninstall.exe"
        code = run_wine(str(program), "/S").returncode
        if code == 0:
            wait_for(lambda: not program.exists() and registry_value(UNINSTALL_KEY, "DisplayName")
                     is None, "the end of the uninstaller")
        return code

    def installed_page(self, name):
        return (self.host / "Info" / name).read_bytes()


class Silent(SetupTest):
    def test_a_folder_without_the_host_is_refused_and_left_as_it_is(self):
        other = self.directory / "Other"
        other.mkdir()
        (other / "keep.txt").write_bytes(b"mine")
        self.assertEqual(2, self.install(folder=other))
        self.assertEqual({"keep.txt": b"mine"}, files_in(other))
        self.assertEqual(2, self.install(folder=self.directory / "Missing"))
        self.assertFalse((self.directory / "Missing").exists())
        # Nothing is known of an earlier installation and none is beside the host.
        self.assertEqual(2, run_wine(str(setup_program()), "/S").returncode)
        self.assertIsNone(registry_value(UNINSTALL_KEY, "InstallLocation"))

    def test_a_folder_that_may_not_be_written_to_is_refused(self):
        (self.host / "WrenDeck.setup.test").mkdir()  # no file of that name can be made
        before = files_in(self.host)
        self.assertEqual(3, self.install())
        self.assertEqual(before, files_in(self.host))

    def test_installs_upgrades_and_goes_without_touching_what_is_the_users(self):
        settings = b"[Unsupported]\r\nIndentSpaces=3\r\n"
        (self.host / "WrenDeck.ini").write_bytes(settings)
        (self.host / "Info").mkdir()
        (self.host / "Info" / "KeyCodes.txt").write_bytes(b"the host's")
        self.assertEqual(0, self.install())
        with zipfile.ZipFile(package(f"WrenDeck-{version()}.zip")) as contents:
            for name in contents.namelist():
                self.assertEqual(contents.read(name), (self.host / name).read_bytes(), name)
        for folder in ("Temp", "Files"):
            self.assertTrue((self.host / folder).is_dir())
        self.assertEqual(windows_path(self.host), registry_value(UNINSTALL_KEY, "InstallLocation"))
        self.assertEqual(version(), registry_value(UNINSTALL_KEY, "DisplayVersion"))
        self.assertIsNone(registry_value(rf"{CLASSES}\.tmj"), "nobody has asked for associations")

        # An earlier release had another page, and the user has changed a second one.
        old, changed, current = PAGES
        for place in (self.host / "Info", self.host / OWN / "Info"):
            (place / old).write_bytes(b"{\\rtf1 of an earlier release}")
        (self.host / "Info" / changed).write_bytes(b"{\\rtf1 with notes\0 of mine}")
        (self.host / "Files" / "mine.tmj").write_bytes(b"BTN S1 A\r\n")
        # The folder is that of the earlier installation now.
        self.assertEqual(0, run_wine(str(setup_program()), "/S").returncode)
        shipped = ROOT / "packaging" / "info"
        self.assertEqual((shipped / old).read_bytes(), self.installed_page(old))
        self.assertEqual(b"{\\rtf1 with notes\0 of mine}", self.installed_page(changed))
        self.assertEqual((shipped / current).read_bytes(), self.installed_page(current))
        self.assertEqual(settings, (self.host / "WrenDeck.ini").read_bytes())

        # A changed page stays at the next upgrade as well.
        self.assertEqual(0, self.install())
        self.assertEqual(b"{\\rtf1 with notes\0 of mine}", self.installed_page(changed))

        self.assertEqual(0, self.uninstall())
        left = {**HOST_FILES, "WrenDeck.ini": settings, "Info": None, "Files": None,
                "Info/KeyCodes.txt": b"the host's", "Files/mine.tmj": b"BTN S1 A\r\n",
                f"Info/{changed}": b"{\\rtf1 with notes\0 of mine}"}
        wait_for(lambda: not (self.host / OWN).exists(), "the end of the uninstaller's folder")
        self.assertEqual(left, files_in(self.host))

    def test_nothing_is_left_of_an_installation_that_nobody_used(self):
        (self.host / "Temp").mkdir()  # the host's own, although it is empty
        self.assertEqual(0, self.install())
        self.assertEqual(0, self.uninstall())
        wait_for(lambda: not (self.host / OWN).exists(), "the end of the uninstaller's folder")
        self.assertEqual({**HOST_FILES, "Temp": None}, files_in(self.host))

    def test_associations_come_on_demand_and_go_back_where_they_are_still_ours(self):
        set_registry_value(rf"{CLASSES}\.tmj", "OtherEditor")
        self.assertEqual(0, self.install("/ASSOCIATE"))
        self.assertEqual(0, self.install("/ASSOCIATE"), "a second time changes nothing")
        for kind in (".tmj", ".tmm"):
            self.assertEqual(f"WrenDeck{kind}", registry_value(rf"{CLASSES}\{kind}"))
            self.assertEqual(f'"{windows_path(self.host)}\\WrenDeck.exe" "%1"', registry_value(
                rf"{CLASSES}\WrenDeck{kind}\shell\open\command"))
        set_registry_value(rf"{CLASSES}\.tmm", "LaterEditor")
        self.assertEqual(0, self.uninstall())
        self.assertEqual("OtherEditor", registry_value(rf"{CLASSES}\.tmj"))
        self.assertEqual("LaterEditor", registry_value(rf"{CLASSES}\.tmm"))
        for kind in (".tmj", ".tmm"):
            self.assertIsNone(registry_value(rf"{CLASSES}\{kind}", "BeforeWrenDeck"))
            self.assertIsNone(registry_value(
                rf"{CLASSES}\WrenDeck{kind}\shell\open\command"))


class ByItsWindows(SetupTest):
    """Pages of one window follow each other; a page is known by a text on it."""

    def page(self, setup, text):
        def look():
            try:
                return next((window for window in setup.dialogs()
                             if any(text in child.text for child in window.children())), None)
            except harness.ProbeError:
                return None  # one page goes, the next one comes
        return setup.wait_keyboard(wait_for(look, f'the page with "{text}"'))

    def enter_folder(self, setup, folder):
        page = self.page(setup, "Choose the folder in which Wren.exe is.")
        page.child(kind="Edit").click()
        setup.key("ctrl+a")
        setup.type(windows_path(folder))
        wait_for(lambda: page.child(kind="Edit").text == windows_path(folder), "the folder's name")
        page.click("Next >")

    def test_asks_for_the_hosts_folder_until_it_is_one(self):
        other = self.directory / "Other"
        other.mkdir()
        setup = self.start(setup_program())
        self.page(setup, "Welcome").click("Next >")
        self.enter_folder(setup, other)
        self.page(setup, "There is no Wren.exe in this folder.").press("OK")
        self.assertEqual({}, files_in(other))
        self.enter_folder(setup, self.host)
        self.page(setup, "components you want").click("Install")
        self.page(setup, f"WrenDeck {version()} has been installed").click("Finish")
        self.assertEqual(0, setup.wait_end())
        # Nothing was ticked that had no tick: no association, and no editor that was started.
        self.assertIsNone(registry_value(rf"{CLASSES}\.tmj"))
        self.assertEqual([], [window for window in harness.probe().ask("windows")
                              if window["class"] == "Editor"])

        # A program that runs is neither replaced nor removed; both tell why.
        editor = self.start(self.host / "WrenDeck.exe")
        editor.wait_main("Editor")
        self.assertEqual(4, self.install())
        before = files_in(self.host)
        setup = self.start(setup_program())
        self.page(setup, "Welcome").click("Next >")
        page = self.page(setup, "Choose the folder in which Wren.exe is.")
        self.assertEqual(windows_path(self.host), page.child(kind="Edit").text)
        page.click("Next >")
        self.page(setup, "WrenDeck is still running").press("OK")
        setup.end()
        # With this switch the uninstaller works where it is, not as a copy elsewhere.
        uninstaller = self.start(self.host / OWN / "uninstall.exe",
                                 f"_?={windows_path(self.host / OWN)}")
        box = self.page(uninstaller, "WrenDeck is still running")
        self.assertEqual(before, files_in(self.host))
        editor.end()
        box.press("Retry")
        self.page(uninstaller, "Your files, the settings").click("Uninstall")
        self.page(uninstaller, "Uninstall was completed").click("Close")
        self.assertEqual(0, uninstaller.wait_end())
        self.assertFalse((self.host / "WrenDeck.exe").exists())
        self.assertIsNone(registry_value(UNINSTALL_KEY, "InstallLocation"))
        for name, data in HOST_FILES.items():
            self.assertEqual(data, (self.host / name).read_bytes())


if __name__ == "__main__":
    unittest.main()
