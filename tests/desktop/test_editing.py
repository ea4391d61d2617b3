"""Typing and the editing keys in a document, and the panels that follow them."""

import subprocess
import unittest

import harness
from editor_steps import EditorTest, park, plain
from harness import probe, wait_for

THREE_LINES = "BTN T1 a\nBTN T2 b\nBTN T3 c\n"


class Editing(EditorTest):
    def start_with_lines(self):
        return self.start_editor(self.write_file("lines.tmj", THREE_LINES.replace("\n", "\r\n")))

    def test_typed_text_is_undone_and_redone(self):
        editor = self.start_with_lines()
        editor.type("REM {/I~}\tx")
        self.wait_text(editor, "REM {/I~}\tx" + THREE_LINES)
        self.wait_panel(editor, 3, "Modified")
        for _ in range(20):
            if editor.edit()["text"] == THREE_LINES:
                break
            editor.key("ctrl+z")
        self.wait_text(editor, THREE_LINES)
        editor.key("ctrl+y")
        self.wait_equal(True, lambda: editor.edit()["text"] != THREE_LINES, "a redone change")

    def test_the_insert_key_switches_to_typing_over(self):
        editor = self.start_with_lines()
        self.wait_panel(editor, 4, "INS")
        editor.key("Insert")
        self.wait_panel(editor, 4, "")
        editor.type("RDDR")
        self.wait_text(editor, "RDDRT1 a\nBTN T2 b\nBTN T3 c\n")
        editor.key("Insert")
        self.wait_panel(editor, 4, "INS")
        editor.type(" ")
        self.wait_text(editor, "RDDR T1 a\nBTN T2 b\nBTN T3 c\n")

    def test_caps_and_num_lock_are_shown_while_they_are_on(self):
        editor = self.start_with_lines()
        for key, panel, name in (("Caps_Lock", 5, "CAPS"), ("Num_Lock", 6, "NUM")):
            before = editor.panel(panel)
            self.assertIn(before, ("", name))
            # Twice, because the lock is the display's and outlives the program.
            for expected in ("" if before else name, before):
                harness.xdotool("key", key)
                self.wait_panel(editor, panel, expected)

    def test_the_line_number_follows_the_caret(self):
        editor = self.start_with_lines()
        self.wait_panel(editor, 2, "Line no: 1")
        editor.key("Down")
        self.wait_panel(editor, 2, "Line no: 2")
        editor.key("ctrl+End")
        self.wait_panel(editor, 2, "Line no: 4")
        editor.key("Up")
        self.wait_panel(editor, 2, "Line no: 3")
        editor.edit_box().click_character(2)
        self.wait_panel(editor, 2, "Line no: 1")
        self.wait_selection(editor, 2, 2)

    def test_the_context_menu_edits_what_is_selected(self):
        editor = self.start_with_lines()
        editor.key("shift+End")
        self.wait_selection(editor, 0, 8)
        self.choose_in_text(editor, "Cut")
        self.wait_text(editor, THREE_LINES[8:])
        editor.key("ctrl+End")
        self.choose_in_text(editor, "Paste")
        self.wait_text(editor, THREE_LINES[8:] + "BTN T1 a")
        self.choose_in_text(editor, "Select all")
        self.wait_selection(editor, 0, len(THREE_LINES))
        self.choose_in_text(editor, "Delete")
        self.wait_text(editor, "")
        self.choose_in_text(editor, "Undo")
        self.wait_text(editor, THREE_LINES[8:] + "BTN T1 a")

    def choose_in_text(self, editor, caption):
        """Opens the menu at what is selected, where a click does not move the selection."""
        box = editor.edit_box()
        position = editor.edit()["selection"][0]
        x, y = probe().ask("character", box.handle, position)
        harness.right_click(x + 1, y + 4)
        items = editor.popup_menu()
        self.assertEqual(["Undo", "", "Cut", "Copy", "Paste", "Delete", "", "Select all"],
                         [plain(item["caption"]) for item in items])
        item = next(item for item in items if plain(item["caption"]) == caption)
        self.assertTrue(item["enabled"], caption)
        harness.click(*harness.middle(item["rect"]))
        park()

    def test_keys_that_format_elsewhere_leave_the_text_as_it_looks(self):
        editor = self.start_with_lines()
        before = self.picture_of_all_selected(editor, "before")
        editor.key("ctrl+b", "ctrl+i", "ctrl+u", "ctrl+e", "ctrl+r", "ctrl+j", "ctrl+1", "ctrl+2")
        editor.key("ctrl+Home")
        self.wait_selection(editor, 0, 0)
        self.assertEqual(before, self.picture_of_all_selected(editor, "after"))
        self.assertEqual(THREE_LINES, editor.edit()["text"])
        self.wait_panel(editor, 3, "Saved")

    def picture_of_all_selected(self, editor, name):
        """What the text box shows, without a caret that blinks."""
        editor.key("ctrl+a")
        self.wait_selection(editor, 0, len(THREE_LINES))
        left, top, right, bottom = editor.edit_box().rect
        self.wait_drawn(editor)
        self.screenshot(name)
        picture = subprocess.run(
            ["convert", str(self.directory / f"{name}.png"), "-crop",
             f"{right - left}x{bottom - top}+{left}+{top}", "rgb:-"],
            check=True, capture_output=True)
        return picture.stdout

    def wait_drawn(self, editor):
        """What the window was asked to draw is drawn when it answers to a key."""
        for key, text in (("Caps_Lock", "CAPS"), ("Caps_Lock", "")):
            harness.xdotool("key", key)
            wait_for(lambda text=text: editor.panel(5) == text, "the answer to a key")

    def test_text_is_copied_to_another_document(self):
        editor = self.start_with_lines()
        editor.key("shift+Down", "ctrl+c", "ctrl+n")
        self.wait_selected(editor, "Untitled")
        editor.key("ctrl+v", "ctrl+v")
        self.wait_text(editor, "BTN T1 a\nBTN T1 a\n")
        self.wait_panel(editor, 2, "Line no: 3")

    def test_the_shortcuts_of_the_window_leave_a_dialogs_field_alone(self):
        editor = self.start_with_lines()
        editor.key("ctrl+o")
        dialog = editor.wait_dialog("Open")
        editor.type("abc")
        editor.key("ctrl+a", "ctrl+x", "ctrl+v", "ctrl+v", "ctrl+n", "F9")
        self.wait_equal(["abcabc"], lambda: [child.text for child in dialog.children(kind="Edit")],
                        "the dialog's field")
        editor.key("Escape")
        dialog.wait_closed()
        self.wait_text(editor, THREE_LINES)
        self.assertEqual(["lines.tmj"], editor.tab_captions())
        self.assertEqual([], editor.dialogs())


if __name__ == "__main__":
    unittest.main()
