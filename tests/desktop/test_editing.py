"""Typing and the editing keys in a document, and the panels that follow them."""

import subprocess
import unittest

import harness
from editor_steps import EditorTest, park, plain
from harness import probe, wait_for

THREE_LINES = "BTN T1 a\nBTN T2 b\nBTN T3 c\n"


# Commands, as the toolbar and scripts know them.
CUT, COPY, PASTE = 202, 203, 204


class LinesTest(EditorTest):
    def start_with(self, text):
        return self.start_editor(self.write_file("lines.tmj", text.replace("\n", "\r\n")))

    def start_with_lines(self):
        return self.start_with(THREE_LINES)

    def picture_of_all_selected(self, editor, name):
        """What the text box shows, without a caret that blinks."""
        editor.key("ctrl+a")
        self.wait_selection(editor, 0, len(editor.edit()["text"]))
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


class Editing(LinesTest):
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
        editor.key("ctrl+b", "ctrl+i", "ctrl+u", "ctrl+e", "ctrl+r", "ctrl+j", "ctrl+1", "ctrl+2",
                   "ctrl+5", "ctrl+equal", "ctrl+plus", "ctrl+shift+a", "ctrl+shift+l",
                   "ctrl+shift+greater", "ctrl+shift+less")
        editor.key("ctrl+Home")
        self.wait_selection(editor, 0, 0)
        self.assertEqual(before, self.picture_of_all_selected(editor, "after"))
        self.assertEqual(THREE_LINES, editor.edit()["text"])
        self.wait_panel(editor, 3, "Saved")

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


class Tools(LinesTest):
    def test_block_rem_and_un_rem_turn_lines_into_comments_and_back(self):
        text = "one\ntwo\nthree\nfour\nfive\nsix\n"
        editor = self.start_with(text)
        # From the middle of line 3 to the middle of line 5.
        editor.key("Down", "Down", "Right", "Right", "shift+Down", "shift+Down")
        self.wait_selection(editor, 10, 21)
        editor.key("ctrl+k")
        commented = "one\ntwo\nRem three\nRem four\nRem five\nsix\n"
        self.wait_text(editor, commented)
        self.wait_selection(editor, commented.index("five"), commented.index("five"))
        self.wait_panel(editor, 2, "Line no: 5")
        self.wait_panel(editor, 3, "Modified")
        # One undo takes back one line.
        editor.key("ctrl+z")
        self.wait_text(editor, commented.replace("Rem five", "five"))
        editor.key("ctrl+y")
        self.wait_text(editor, commented)
        # A selection that ends at the start of line 5 leaves that line alone.
        editor.key("ctrl+Home", "Down", "Down", "shift+Down", "shift+Down")
        self.wait_selection(editor, 8, 27)
        editor.key("ctrl+shift+k")
        self.wait_text(editor, "one\ntwo\nthree\nfour\nRem five\nsix\n")
        self.wait_panel(editor, 2, "Line no: 4")
        # Without a selection it is the caret's line.
        editor.key("Down", "ctrl+shift+k")
        self.wait_text(editor, text)

    def test_block_rem_moves_the_caret_with_its_character_in_the_first_line(self):
        editor = self.start_with("FIRE = x\n")
        editor.key("Right", "Right")
        self.choose(editor, "Tools", "Block REM")
        self.wait_text(editor, "Rem FIRE = x\n")
        self.wait_selection(editor, 6, 6)
        # The text has the keys.
        editor.type("!")
        self.wait_text(editor, "Rem FI!RE = x\n")

    def test_block_rem_puts_nothing_into_an_empty_document(self):
        editor = self.start_editor()
        self.wait_panel(editor, 3, "New file")
        editor.key("ctrl+k")
        editor.type("x")
        self.wait_text(editor, "x")

    def test_align_puts_modifiers_under_each_other_and_one_undo_takes_it_back(self):
        text = "BTN  T1\t/I X /O Y\n/O Z\nrem   x\n"
        aligned = "BTN T1 /I X /O Y\n       /O Z\nrem   x\n"
        editor = self.start_with(text)
        editor.key("ctrl+l")
        self.wait_text(editor, aligned)
        self.wait_panel(editor, 1, " Hang on - this could take time ...")
        self.wait_panel(editor, 3, "Modified")
        for name, content in (("DeckAlign.txt", text), ("DeckAlign2.txt", aligned)):
            self.assertEqual(content.replace("\n", "\r\n").encode("ascii"),
                             self.app_file(f"Temp/{name}").read_bytes())
        editor.key("ctrl+z")
        self.wait_text(editor, text)
        self.choose(editor, "Tools", "Indent statements when aligning")
        wait_for(lambda: editor.menu_item("Tools", "Indent statements when aligning")["checked"],
                 "the tick")
        self.choose(editor, "Tools", "Align slash modifiers")
        self.wait_text(editor, "     BTN T1 /I X /O Y\n            /O Z\nrem   x\n")

    def test_aligning_an_aligned_document_makes_it_one_to_save(self):
        text = "BTN T1 /I X\n       /O Y\n"
        editor = self.start_with(text)
        self.wait_panel(editor, 3, "Saved")
        editor.key("ctrl+l")
        self.wait_panel(editor, 3, "Modified")
        self.assertEqual(text, editor.edit()["text"])

    def test_a_hundred_edits_are_taken_back_in_each_document(self):
        editor = self.start_with_lines()
        harness.fill_clipboard("text=x")
        editor.key(*["ctrl+v"] * 100)
        self.wait_text(editor, "x" * 100 + THREE_LINES)
        editor.key("ctrl+n")
        self.wait_selected(editor, "Untitled")
        editor.key(*["ctrl+v"] * 100)
        self.wait_text(editor, "x" * 100)
        editor.key(*["ctrl+z"] * 99)
        self.wait_text(editor, "x")
        editor.key("ctrl+z")
        self.wait_text(editor, "")
        editor.click_tab("lines.tmj")
        self.wait_selected(editor, "lines.tmj")
        editor.key(*["ctrl+z"] * 100)
        self.wait_text(editor, THREE_LINES)

    def test_refreshing_the_fonts_leaves_selection_flag_and_history_alone(self):
        editor = self.start_with_lines()
        editor.key("Down", "Right", "shift+Down")
        self.wait_selection(editor, 10, 19)
        self.choose(editor, "Edit", "Refresh fonts")
        self.wait_drawn(editor)
        self.assertEqual([10, 19], editor.edit()["selection"])
        self.assertEqual(THREE_LINES, editor.edit()["text"])
        self.assertEqual("Saved", editor.panel(3))
        # What is typed and taken back comes out as if nothing had been done.
        editor.type("y")
        self.wait_text(editor, THREE_LINES[:10] + "y" + THREE_LINES[19:])
        editor.key("ctrl+z", "ctrl+z")
        self.wait_text(editor, THREE_LINES)


class Clipboard(LinesTest):
    def setUp(self):
        super().setUp()
        harness.fill_clipboard("text=mine")

    def assert_untouched(self, editor):
        self.wait_drawn(editor)
        self.assertEqual(THREE_LINES, editor.edit()["text"])
        self.assertEqual("Saved", editor.panel(3))
        self.assertEqual("mine", harness.clipboard_text())

    def test_without_a_selection_cut_and_copy_do_nothing(self):
        editor = self.start_with_lines()
        editor.key("Right", "ctrl+x", "ctrl+c", "shift+Delete", "ctrl+Insert")
        self.assert_untouched(editor)
        for button in (CUT, COPY):
            editor.toolbar_click(button)
            park()
        self.assert_untouched(editor)
        self.assertEqual([1, 1], editor.edit()["selection"])

    def test_the_edit_menu_offers_cut_copy_and_delete_for_a_selection_only(self):
        editor = self.start_with_lines()
        self.assert_offered(editor, False)
        editor.key("shift+Right")
        self.wait_selection(editor, 0, 1)
        self.assert_offered(editor, True)

    def assert_offered(self, editor, enabled):
        editor.key("alt+e")
        offered = {plain(item["caption"]): item["enabled"] for item in editor.popup_menu()}
        self.assertEqual({"Cut": enabled, "Copy": enabled, "Delete": enabled, "Paste": True},
                         {name: offered[name] for name in ("Cut", "Copy", "Delete", "Paste")})
        editor.key("Escape", "Escape")
        wait_for(lambda: all(window.kind != harness.POPUP_MENU for window in editor.windows()),
                 "the end of the menu")

    def test_the_toolbar_cuts_copies_and_pastes(self):
        editor = self.start_with_lines()
        editor.key("shift+End")
        self.wait_selection(editor, 0, 8)
        editor.toolbar_click(COPY)
        wait_for(lambda: harness.clipboard_text() == "BTN T1 a", "the copied text")
        editor.toolbar_click(CUT)
        self.wait_text(editor, THREE_LINES[8:])
        editor.toolbar_click(PASTE)
        editor.toolbar_click(PASTE)
        self.wait_text(editor, "BTN T1 aBTN T1 a" + THREE_LINES[8:])
        park()

    def test_delete_leaves_the_clipboard_alone(self):
        editor = self.start_with_lines()
        editor.key("shift+End")
        self.wait_selection(editor, 0, 8)
        self.choose(editor, "Edit", "Delete")
        self.wait_text(editor, THREE_LINES[8:])
        self.assertEqual("mine", harness.clipboard_text())

    def test_formatted_text_is_pasted_as_plain_text(self):
        editor = self.start_with_lines()
        editor.type("plain")
        self.wait_text(editor, "plain" + THREE_LINES)
        typed = self.picture_of_all_selected(editor, "typed")
        harness.fill_clipboard("text=plain", r"rtf={\rtf1{\b\fs80{}formatted}}")
        for key in ("ctrl+v", "shift+Insert"):
            editor.key("ctrl+Home", *["shift+Right"] * 5)
            self.wait_selection(editor, 0, 5)
            editor.key("Delete")
            self.wait_text(editor, THREE_LINES)
            editor.key(key)
            self.wait_text(editor, "plain" + THREE_LINES)
            editor.key("ctrl+Home")
            self.assertEqual(typed, self.picture_of_all_selected(editor, f"by {key}"))

    def test_what_is_no_text_is_not_pasted(self):
        editor = self.start_with_lines()
        editor.key("shift+End")
        self.wait_selection(editor, 0, 8)
        for part in ("picture", r"rtf={\rtf1{\b{}formatted}}"):
            harness.fill_clipboard(part)
            editor.key("ctrl+v", "shift+Insert")
            editor.toolbar_click(PASTE)
            park()
            self.wait_drawn(editor)
            self.assertEqual(THREE_LINES, editor.edit()["text"])
            self.assertEqual([0, 8], editor.edit()["selection"])
            self.assertEqual("Saved", editor.panel(3))


if __name__ == "__main__":
    unittest.main()
