"""The editor itself, killed while it writes: every file is the whole old or the whole new one.

Kills fall at three kinds of moments in turn: behind the posted command, at once or after a random
part of the time that the writing takes; a random while behind the first sight of the new file beside
the old one; and a random while behind the moment when it stood in the old one's place.

DECK_EDITOR_KILLS says how many kills there are, 6 by default; DECK_EDITOR_KILLS_SEED repeats a run.
"""

import collections
import os
import random
import re
import time
import unittest

import harness
from editor_steps import EditorTest
from harness import probe, wait_for, windows_path

SAVE, SAVE_AS, SAVE_ALL, CLOSE, EXIT, FIRST_RECENT = 103, 104, 105, 106, 110, 2001
ENABLE_AFTER_DOWNLOAD = 603
IDOK, IDYES = 1, 6
EM_SETSEL = 0x00B1

LINE = "BTN S1 FIRE rem a line of joystick file\r\n"
SECOND_FILE = re.compile(r"(.+)~\d+-\d+\.tmp")
UTF16 = "utf-16-le"
# The texts by their files' names, and how they are written.
DOCUMENTS = {
    "few.tmj": ("BTN S1 X\r\n", "ascii"),
    "hundreds.tmj": (LINE * 300, "ascii"),
    "wide.tmj": ("\ufeff" + LINE * 300, UTF16),
    "macros.tmm": ("FIRE = SPC\r\n" * 300, "ascii"),
    "thousands.tmj": (LINE * 2_000, "ascii"),
    "widest.tmj": ("\ufeff" + LINE * 2_000, UTF16),
    "tens.tmj": (LINE * 10_000, "ascii"),
    "megabyte.tmj": (LINE * 25_000, "ascii"),
}
TARGET = "target.tmj"
TARGETS = [b"", b"BTN S2 Y\r\n", LINE.encode("ascii") * 5_000]
SETTINGS = {
    "Miscellaneous": {"indentspaces": "5", "maxpreviousfiles": "30", "indentaswell": "0",
                      "enablejoystick": "1", "runappswithdownload": "0",
                      "editortopatstartup": "600", "editorleftatstartup": "600",
                      "editorwidthatstartup": "12000", "editorheightatstartup": "9000",
                      "editorwindowstate": "0"},
    "Unsupported": {"indentspaces": "5"},
}
RECENT = "Previous Files"
# What a kill left of a command's writing.
OLD, CUT, BETWEEN, NEW = OUTCOMES = (
    "before", "while a new file stood beside the old one", "between two files", "behind")
WAYS = ("kill -9", "TerminateProcess")
# In seconds.
WATCH_SECONDS = 20
LONGEST_BEHIND = 0.05  # what was waited for
FIRST_GUESS = 0.05     # of the time that a command's writing takes, until it was measured


def with_mark(text, mark):
    """The text of a document as it is written after `mark` was inserted before it."""
    return text[0] + mark + text[1:] if text.startswith("\ufeff") else mark + text


def files_beside(second_files):
    """The files that these second files were to replace."""
    return {SECOND_FILE.fullmatch(name)[1] for name in second_files}


def steady(look):
    """What is seen once no window goes or comes meanwhile."""
    seen = []

    def can_be_seen():
        try:
            seen.append(look())
        except (harness.ProbeError, AssertionError):
            return False
        return True

    wait_for(can_be_seen, "windows that stay")
    return seen[0]


def recent_first(sections, name):
    """The settings once `name` was opened or saved."""
    entries = sections[RECENT]
    paths = [entries[f"previousfilepath{number + 1}"]
             for number in range(int(entries["numberpreviousfiles"]))]
    path = next(path for path in paths if path.endswith("\\" + name))
    paths.remove(path)
    return {**sections, RECENT: recent([path, *paths])}


def recent(paths):
    return {"numberpreviousfiles": str(len(paths)),
            **{f"previousfilepath{number}": path for number, path in enumerate(paths, 1)}}


class Attack:
    """What the editor was told to do while it was killed."""

    def __init__(self, trigger, documents, settings):
        self.trigger = trigger      # sets the writing off
        self.documents = documents  # names of those that it writes
        self.settings = settings    # each state they may be found in, from the old to the new one
        self.second_files = set()   # that earlier kills left


class Kills(EditorTest):
    def setUp(self):
        super().setUp()
        self.seed = int(os.environ.get("DECK_EDITOR_KILLS_SEED", random.randrange(1_000_000)))
        self.random = random.Random(self.seed)
        self.folder = self.app_file("Files")
        for path in self.folder.iterdir():
            path.unlink()
        self.ini = self.app_file("WrenDeck.ini")
        self.host = self.app_file("Wren.ini").read_bytes()
        for name, (text, encoding) in DOCUMENTS.items():
            (self.folder / name).write_bytes(text.encode(encoding))
        names = [*DOCUMENTS, TARGET]
        sections = {**SETTINGS, RECENT: recent([windows_path(self.folder / name)
                                                for name in names])}
        self.ini.write_bytes("".join(
            f"[{section}]\r\n" + "".join(f"{key}={value}\r\n" for key, value in keys.items())
            for section, keys in sections.items()).encode("cp1252"))
        # What the next start has to bring back, and what it may bring back though it is on disk under
        # another name: the bytes by the file's name.
        self.lost = {}
        self.may_return = {}
        self.seconds = collections.defaultdict(lambda: FIRST_GUESS)
        self.found = collections.Counter()
        self.mark = ""
        self.now = ""

    def test_a_killed_editor_leaves_every_file_whole_and_loses_no_text(self):
        if "DECK_EDITOR_KILLS" in os.environ:
            self.addCleanup(self.print_found)
        kills = int(os.environ.get("DECK_EDITOR_KILLS", "6"))
        commands = [self.save, self.save_all, self.save_as, self.open_recent, self.exit]
        for number in range(kills):
            self.now = f"kill {number} of seed {self.seed}: "
            self.kill_one(number, commands[number % len(commands)])
        self.end_well()
        self.assertEqual(kills, sum(self.found.values()))
        ends = [sum(self.found[key] for key in self.found if key[2] == end) for end in (OLD, NEW)]
        self.assertLess(ends[0], kills, "every kill came before the first byte was written")
        self.assertLess(ends[1], kills, "every kill came when all was written")

    def print_found(self):
        """A line for each command and way of killing: how many kills fell where."""
        for command, way in sorted({key[:2] for key in self.found}):
            counts = [self.found[command, way, outcome] for outcome in OUTCOMES]
            print(f"{command}, {way}: " + ", ".join(
                f"{count} {outcome}" for count, outcome in zip(counts, OUTCOMES)), flush=True)

    # One life of the editor, which brings back what the one before had to leave.

    def kill_one(self, number, command):
        editor = self.start_shown()
        self.check_return(editor)
        (self.folder / TARGET).write_bytes(self.random.choice(TARGETS))
        self.old = {name: self.data(name) for name in [*DOCUMENTS, TARGET]}
        self.mark = f"rem-{number}-"
        self.new = {}
        attack = command(editor)
        attack.second_files = self.second_files()
        self.kill_in(editor, attack, command.__name__, number)
        self.check_files(attack, command.__name__, WAYS[number % 2])

    def kill_in(self, editor, attack, command, number):
        files = [self.folder / name for name in attack.documents] + [self.ini]
        watched = self.random.choice(files)
        before = watched.stat().st_ino
        behind = LONGEST_BEHIND * 10 ** self.random.uniform(-3, 0)
        attack.trigger()
        start = time.perf_counter()

        def watch(condition):
            while not condition() and time.perf_counter() < start + WATCH_SECONDS:
                pass

        def replaced():
            return watched.stat().st_ino != before

        if number % 3 == 0:
            most = 1.2 * self.seconds[command, watched.name]
            wait = self.random.uniform(0, most) if number % 12 != 0 else 0
            watch(lambda: time.perf_counter() > start + wait)
        elif number % 3 == 1:
            watch(lambda: replaced() or any(name.startswith(watched.name + "~")
                                            and name not in attack.second_files
                                            for name in os.listdir(watched.parent)))
            time.sleep(behind)
        else:
            watch(replaced)
            self.seconds[command, watched.name] = time.perf_counter() - start
            time.sleep(behind)
        if number % 2 == 0:
            editor.kill()
        else:
            editor.terminate()
        editor.wait_end()

    # The commands.

    def save(self, editor):
        name = self.random.choice(list(DOCUMENTS))
        self.edit(editor, name)
        self.wait_kept()
        before = self.settled(editor)
        return Attack(lambda: editor.post(SAVE), [name], [before, recent_first(before, name)])

    def save_all(self, editor):
        names = self.random.sample(list(DOCUMENTS), 4)
        for name in names:
            self.edit(editor, name)
        self.wait_kept()
        settings = [self.settled(editor)]
        for name in names:
            settings.append(recent_first(settings[-1], name))
        return Attack(lambda: editor.post(SAVE_ALL), names, settings)

    def save_as(self, editor):
        name = self.random.choice(list(DOCUMENTS))
        self.edit(editor, name)
        self.wait_kept()
        editor.post(SAVE_AS)
        dialog = editor.wait_window(harness.DIALOG, "Save As")
        box = steady(lambda: dialog.child(kind="Edit", text=name))
        probe().ask("post", box.handle, EM_SETSEL, 0, -1)
        self.wait_equal([0, len(name)], lambda: box.edit()["selection"], "the name to be selected")
        box.insert(TARGET)
        probe().ask("post", dialog.handle, harness.WM_COMMAND, IDOK, 0)
        question = editor.wait_window(harness.DIALOG, "OK to overwrite exisiting file?")
        self.new[TARGET] = self.new[name]
        before = self.settled(editor)
        return Attack(lambda: probe().ask("post", question.handle, harness.WM_COMMAND, IDYES, 0),
                      [TARGET], [before, recent_first(before, TARGET)])

    def open_recent(self, editor):
        before = self.settled(editor)
        name = self.random.choice(list(DOCUMENTS))
        id = self.recent_id(editor, name)
        return Attack(lambda: editor.post(id), [], [before, recent_first(before, name)])

    def exit(self, editor):
        before = self.settled(editor)
        ticked = before["Miscellaneous"]["enablejoystick"] == "1"
        editor.post(ENABLE_AFTER_DOWNLOAD)
        self.wait_equal(not ticked,
                        lambda: editor.menu_item("Download", "Enable after download")["checked"],
                        "the tick")
        after = {**before, "Miscellaneous": {**before["Miscellaneous"],
                                             "enablejoystick": "0" if ticked else "1"}}
        return Attack(lambda: editor.post(EXIT), [], [before, after])

    # Steps.

    def start_shown(self):
        editor = self.start(self.app / "WrenDeck.exe")
        editor.wait_main_shown("Editor")
        return editor

    def settled(self, editor):
        """The settings, once the recent files that the menu shows are on disk."""
        shown = steady(lambda: self.recent_files(editor))
        self.wait_equal(recent(shown), lambda: harness.read_ini(self.ini)[RECENT],
                        "the recent files to be written")
        return harness.read_ini(self.ini)

    def recent_id(self, editor, name):
        shown = steady(lambda: self.recent_files(editor))
        return FIRST_RECENT + next(number for number, path in enumerate(shown)
                                   if path.endswith("\\" + name))

    def open_document(self, editor, name):
        editor.post(self.recent_id(editor, name))
        self.wait_equal(name, editor.selected_tab, "the document to be opened")

    def edit(self, editor, name):
        self.open_document(editor, name)
        steady(editor.edit_box).insert(self.mark)
        encoding = DOCUMENTS[name][1]
        self.new[name] = with_mark(self.old[name].decode(encoding), self.mark).encode(encoding)

    def wait_kept(self):
        """Waits until the unsaved texts are on disk, as they are two seconds after the last edit."""
        def is_kept(name, text):
            return any(text == kept and any(line.endswith("\\" + name) for line in header.splitlines())
                       for header, kept in found)

        def kept():
            found[:] = [path.read_bytes().decode("utf-16").replace("\n", "\r\n").split("\r\n\r\n", 1)
                        for path in self.app_file("Recovery").glob("*.txt")]
            return all(is_kept(name, data.decode(DOCUMENTS[name][1]).lstrip("\ufeff"))
                       for name, data in self.new.items())
        found = []
        wait_for(kept, "the unsaved texts to be kept")

    def close(self, editor, tabs):
        for _ in tabs:
            editor.post(CLOSE)
        self.wait_tabs(editor, "Untitled")

    # What must hold.

    def check_files(self, attack, command, way):
        self.assertEqual(self.host, self.app_file("Wren.ini").read_bytes())
        written = {name for name in self.new if self.data(name) == self.new[name]}
        for name, old in self.old.items():
            if name not in written:
                self.assertTrue(self.data(name) == old, f"{self.now}{name} is torn")
        self.assertLessEqual(written, set(attack.documents), self.now)
        settings = harness.read_ini(self.ini)
        self.assertTrue(settings in attack.settings, f"{self.now}the settings are torn: {settings}")
        unsaved = {name: data for name, data in self.new.items()
                   if name in DOCUMENTS and name not in written}
        self.lost, self.may_return = ({}, unsaved) if TARGET in written else (unsaved, {})

        if self.second_files() - attack.second_files:
            outcome = CUT
        elif not written and settings == attack.settings[0]:
            outcome = OLD
        elif len(written) == len(attack.documents) and settings == attack.settings[-1]:
            outcome = NEW
        else:
            outcome = BETWEEN
        self.found[command, way, outcome] += 1

    def data(self, name):
        return (self.folder / name).read_bytes()

    def second_files(self):
        """Those that killed writings left; there are no others beside the files."""
        expected = {*DOCUMENTS, TARGET}
        names = {path.name for path in self.folder.iterdir()} - expected
        names |= {path.name for path in self.app.iterdir() if path.suffix == ".tmp"}
        for name in names:
            match = SECOND_FILE.fullmatch(name)
            self.assertTrue(match and match[1] in {*expected, "WrenDeck.ini"},
                            f"{self.now}{name} is nobody's")
        return names

    def check_return(self, editor):
        """The texts that were not saved are there again, and whole."""
        tabs = steady(editor.tab_captions)
        came = set(tabs) - {"Untitled"}
        self.assertLessEqual(set(self.lost), came, f"{self.now}what was not saved did not come back")
        self.assertLessEqual(came, {*self.lost, *self.may_return}, f"{self.now}what was saved came")
        if came:
            expected = {**self.lost, **self.may_return}
            editor.post(SAVE_ALL)
            wait_for(lambda: all(self.data(name) == expected[name] for name in came),
                     f"the texts of {came} to be saved")
            self.close(editor, tabs)
            self.assertFalse(came & files_beside(self.second_files()),
                             f"{self.now}second files stayed")

    def end_well(self):
        """The last start: saving takes away all that the killed ones left beside the files."""
        editor = self.start_shown()
        self.check_return(editor)
        for name in files_beside(self.second_files()) - {"WrenDeck.ini"}:
            self.open_document(editor, name)
            editor.post(SAVE)
        editor.post(EXIT)
        self.assertEqual(0, editor.wait_end())
        self.assertEqual(set(), self.second_files())
        self.assertEqual([], list(self.app_file("Recovery").iterdir()))


if __name__ == "__main__":
    unittest.main()
