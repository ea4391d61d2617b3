"""What was typed outlives an editor that is killed."""

import shutil
import unittest

from editor_steps import EditorTest
from harness import wait_for


class Recovery(EditorTest):
    def texts(self):
        folder = self.app_file("Recovery")
        return sorted(folder.glob("*.txt")) if folder.exists() else []

    def wait_kept(self, *texts):
        """Waits until these texts, and no others, are in the folder."""
        self.wait_equal(sorted(texts), lambda: sorted(
            path.read_bytes().decode("utf-16").split("\n\n", 1)[1] for path in self.texts()),
            "the texts that are kept")

    def start_copy(self, name):
        """Another editor in the same folder; by the program's name the harness tells them apart."""
        shutil.copy(self.app / "WrenDeck.exe", self.app / name)
        editor = self.start(self.app / name)
        editor.wait_main("Editor")
        return editor

    def test_texts_of_a_killed_editor_come_back(self):
        path = self.write_file("carrier.tmj", "BTN S1 X\r\n")
        editor = self.start_editor(path)
        editor.type("rem first\n")
        editor.key("ctrl+n")
        self.wait_tabs(editor, "carrier.tmj", "Untitled")
        editor.type("never saved")
        self.wait_kept("rem first\nBTN S1 X\n", "never saved")
        editor.end()

        editor = self.start_editor()
        self.wait_tabs(editor, "carrier.tmj", "Untitled")
        self.assertEqual("Unsaved text has come back: carrier.tmj, Untitled", editor.panel(1))
        self.assertEqual("Modified", editor.panel(3))
        self.assertEqual("rem first\nBTN S1 X\n", editor.edit()["text"])
        self.assertEqual(b"BTN S1 X\r\n", path.read_bytes())
        editor.key("ctrl+s")
        self.wait_panel(editor, 3, "Saved")
        self.assertEqual(b"rem first\r\nBTN S1 X\r\n", path.read_bytes())
        self.wait_kept("never saved")
        editor.click_tab("Untitled")
        self.wait_text(editor, "never saved")
        editor.close()
        editor.wait_dialog("Save Untitled?").press("No")
        editor.wait_end()
        self.assertEqual([], list(self.app_file("Recovery").iterdir()))

    def test_a_killed_editor_loses_at_most_the_last_seconds_of_typing(self):
        editor = self.start_editor()
        line = "BTN S1 FIRE rem a line of joystick file\n"
        for number in range(1, 6):
            editor.type(line)
            self.wait_kept(line * number)
        editor.end()
        editor = self.start_editor()
        self.wait_text(editor, line * 5)

    def test_two_editors_do_not_take_each_others_texts(self):
        first = self.start_editor()
        first.type("of the first")
        self.wait_kept("of the first")
        second = self.start_copy("Second.exe")
        self.assertEqual(["Untitled"], second.tab_captions())
        self.assertEqual("", second.edit()["text"])
        second.type("of the second")
        self.wait_kept("of the first", "of the second")
        second.end()
        third = self.start_copy("Third.exe")
        self.wait_text(third, "of the second")
        self.assertEqual(["Untitled"], third.tab_captions())
        self.assertEqual("of the first", first.edit()["text"])

    def test_a_folder_that_takes_no_files_is_told(self):
        self.app_file("Recovery").write_bytes(b"in the way")
        editor = self.start_editor()
        self.assertTrue(editor.panel(1).startswith("Settings and unsaved texts cannot be kept in "))
        editor.type("works all the same")
        self.wait_text(editor, "works all the same")
        wait_for(lambda: editor.panel(3) == "Modified", "the flag")


if __name__ == "__main__":
    unittest.main()
