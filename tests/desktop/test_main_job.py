"""A pilot's main job, on every sample pair: open a joystick file, see its macros, put one in, save,
compile, and land on the line of an error."""

import re
import unittest

import harness
from editor_steps import EditorTest, park
from harness import ini_value, probe

# Every sample joystick file with its macro file. The first two are also dragged into.
PAIRS = [
    ("airliner.tmj", "airliner.tmm"),
    ("rallye.tmj", "rallye.tmm"),  # accents in a code page
    ("Carrier Strike.tmj", "Carrier Strike.tmm"),
    ("bushpilot.tmj", "bushpilot.tmm"),
    ("campaign.tmj", "campaign.tmm"),
    ("gunship.tmj", "gunship.tmm"),
    ("ironmech.tmj", "ironmech.tmm"),
    ("islandfighter.tmj", "islandfighter.tmm"),
    ("railroad.tmj", "railroad.tmm"),  # LF as line ends
    ("starlance.tmj", "starlance_keys.tmm"),
]
DRAGGED_INTO = 2
# The compile command is for these only where the host's preferences say so.
OLD_PAIRS = [("corsair.b50", "corsair.m50"), ("eagle84.f22", "eagle84.m22")]

COMBO, LIST = 1006, 1007


def macros_by_heading(text):
    """The headings of a macro file and the macros that stand under each, "All" first."""
    found = {"All": []}
    heading = None
    lines = [line.strip(" ") for line in text.splitlines() if line.strip(" ") not in ("", "rem")]
    for before, line in zip([""] + lines, lines):
        if re.match("rem --", before, re.I) and re.match("rem [^-]", line, re.I):
            heading = line[3:].strip().capitalize()
            found[heading] = []
        elif "=" in line and not re.match("rem|//|~", line, re.I):
            found["All"].append(line.split("=")[0].strip())
            if heading:
                found[heading].append(found["All"][-1])
    return found


class Pair:
    """A joystick file as it is on disk, and as the editor should show it."""

    def __init__(self, test, joystick, macro_file):
        self.caption = joystick
        self.macro_caption = macro_file
        self.path = test.sample(joystick)
        self.bytes = self.path.read_bytes()
        self.line_end = b"\r\n" if b"\r\n" in self.bytes else b"\n"
        self.text = self.bytes.decode("cp1252").replace("\r\n", "\n")
        self.macros = macros_by_heading(
            test.sample(macro_file).read_bytes().decode("cp1252"))

    def insert(self, position, text):
        """Notes what the user puts into the text."""
        head, tail = self.text[:position], self.text[position:]
        at = len(head.encode("cp1252")) + head.count("\n") * (len(self.line_end) - 1)
        new = text.encode("cp1252").replace(b"\n", self.line_end)
        self.bytes = self.bytes[:at] + new + self.bytes[at:]
        self.text = head + text + tail


class MainJob(EditorTest):
    def setUp(self):
        super().setUp()
        self.compile_quickly()
        self.editor = None

    def do_job(self, pair, drag=False):
        self.open_pair(pair)
        self.check_macros(pair)
        if drag:
            self.check_tool_tip(pair)
        self.insert_by_double_click(pair)
        if drag:
            self.insert_by_dragging(pair)
        self.save(pair)
        self.compile_good(pair)
        self.compile_bad(pair)
        self.close_pair(pair)

    def open_pair(self, pair):
        # Once by the whole path, else by the name in the folder that the dialog shows.
        is_first = pair.caption == PAIRS[0][0]
        self.open(self.editor, harness.windows_path(pair.path) if is_first else pair.caption)
        self.wait_tabs(self.editor, pair.caption, pair.macro_caption)
        self.wait_selected(self.editor, pair.caption)
        self.wait_text(self.editor, pair.text)
        self.wait_selection(self.editor, 0, 0)
        self.wait_panel(self.editor, 3, "Saved")

    def check_macros(self, pair):
        headings = list(pair.macros)
        self.assertEqual(headings, self.editor.main.child(id=COMBO).combo()["items"])
        self.assertEqual(pair.macros["All"], self.editor.main.child(id=LIST).items())
        self.assertEqual(pair.macro_caption, self.editor.panel(8))

    def check_tool_tip(self, pair):
        counts = (len(pair.macros["All"]), len(pair.macros) - 1)
        self.wait_tool_tip(self.editor, self.panel_point(self.editor, 8),
                           "Contains %d macros and %d macro headings" % counts)

    def insert_by_double_click(self, pair):
        self.editor.key("ctrl+End")
        self.editor.type("BTN S3 (")
        pair.insert(len(pair.text), "BTN S3 (")
        self.wait_text(self.editor, pair.text)
        self.wait_panel(self.editor, 3, "Modified")
        self.editor.main.child(id=LIST).double_click_item(1)
        # Behind something else than a blank the name gets one in front.
        pair.insert(len(pair.text), f" {pair.macros['All'][1]} ")
        self.wait_text(self.editor, pair.text)
        self.wait_selection(self.editor, len(pair.text), len(pair.text))
        self.editor.type(")")
        pair.insert(len(pair.text), ")")
        self.wait_text(self.editor, pair.text)

    def insert_by_dragging(self, pair):
        # Into the first line, which is a comment.
        self.editor.key("ctrl+Home")
        self.wait_panel(self.editor, 2, "Line no: 1")
        x, y = probe().ask("character", self.editor.edit_box().handle, 3)
        harness.drag(self.editor.main.child(id=LIST).item_point(0), (x + 1, y + 6))
        pair.insert(3, f" {pair.macros['All'][0]} ")
        self.wait_text(self.editor, pair.text)
        park()

    def save(self, pair):
        self.editor.key("ctrl+s")
        self.wait_panel(self.editor, 1, f"{pair.caption} successfully saved")
        self.wait_panel(self.editor, 3, "Saved")
        self.assertEqual(pair.bytes, pair.path.read_bytes())

    def compile_good(self, pair):
        self.editor.key("F9")
        box = self.editor.wait_dialog("Compile results")
        memory = self.compiler_says("Memory")
        self.assertRegex(memory, "^[1-9][0-9]?$")
        self.assertEqual(f"{pair.caption} was compiled successfully.\n"
                         f"Compiled file size: {memory}% of the Cougar memory.", box.text)
        self.assertEqual(["OK"], box.buttons())
        self.wait_panel(self.editor, 1, f" Compiled successfully. (Memory used: {memory}%)")
        box.press("OK")
        park()

    def compile_bad(self, pair):
        self.editor.key("ctrl+End", "Return")
        start = len(pair.text) + 1
        self.editor.type("BOGUS T1\nBTN S4 NUL")
        pair.insert(len(pair.text), "\nBOGUS T1\nBTN S4 NUL")
        self.wait_text(self.editor, pair.text)
        line = pair.text[:start].count("\n") + 1
        self.editor.key("F9")
        box = self.editor.wait_dialog("The compile was unsuccessful")
        self.assertEqual(pair.bytes, pair.path.read_bytes())
        error = self.compiler_says("ErrorCode")
        self.assertRegex(error, "^Error 2001: ")
        self.assertEqual(f"Compiler reported an error at line {line}: {error}", box.text)
        self.wait_panel(self.editor, 1, f" Compiler reported an error at line {line}: {error}")
        box.press("OK")
        park()
        self.wait_selection(self.editor, start, start + len("BOGUS T1\n"))
        self.wait_panel(self.editor, 2, f"Line no: {line}")
        self.wait_equal(self.editor.edit_box().handle, lambda: probe().ask("focus")["focus"],
                        "the focus")

    def close_pair(self, pair):
        self.editor.key("ctrl+F4")
        self.wait_tabs(self.editor, pair.macro_caption)
        self.editor.key("ctrl+F4")
        self.wait_tabs(self.editor, "Untitled")
        self.wait_panel(self.editor, 8, "No macro file analysed")

    def compiler_says(self, key):
        return ini_value(self.app_file("HOTAS.ini"), "Compiler", key)

    def test_is_done_on_every_pair_of_joystick_and_macro_file(self):
        joystick_files = {path.name for path in self.app_file("Files").glob("*.[tfb][m25][j20]")}
        self.assertEqual(joystick_files, {pair[0] for pair in PAIRS + OLD_PAIRS})
        self.editor = self.start_editor()
        for number, names in enumerate(PAIRS):
            self.do_job(Pair(self, *names), drag=number < DRAGGED_INTO)
        self.quit(self.editor)

    def test_is_done_on_the_old_formats_where_the_host_wants_the_command_for_every_file(self):
        self.prefer("Miscellaneous", "AlwaysShowCompileDownload", 1)
        self.editor = self.start_editor()
        for names in OLD_PAIRS:
            self.do_job(Pair(self, *names))
        self.quit(self.editor)


if __name__ == "__main__":
    unittest.main()
