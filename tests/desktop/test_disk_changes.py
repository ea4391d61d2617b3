"""Files that another program writes while the editor has them open."""

import unittest

from editor_steps import EditorTest


class DiskChanges(EditorTest):
    def away_and_back(self, editor, path, data):
        """The user turns to another program, which writes the file, and comes back."""
        other = self.start(self.app_file("Starter.exe"))
        other.wait_keyboard(other.wait_window())
        path.write_bytes(data)
        other.end()
        editor.wait_keyboard(editor.main)

    def test_an_unmodified_file_is_read_again_and_a_modified_one_is_not(self):
        path = self.write_file("carrier.tmj", "one\r\ntwo\r\nthree\r\n")
        editor = self.start_editor(path)
        editor.key("Down", "Down")
        self.wait_panel(editor, 2, "Line no: 3")
        self.away_and_back(editor, path, b"uno\ndos\ntres\ncuatro\n")
        self.wait_text(editor, "uno\ndos\ntres\ncuatro\n")
        self.wait_panel(editor, 1, "Changed on disk and read again: carrier.tmj")
        self.assertEqual("Line no: 3", editor.panel(2))
        self.assertEqual("Saved", editor.panel(3))

        editor.type("my ")
        self.wait_text(editor, "uno\ndos\nmy tres\ncuatro\n")
        self.away_and_back(editor, path, b"of somebody else")
        self.wait_panel(editor, 1, "Changed on disk: carrier.tmj")
        self.assertEqual("uno\ndos\nmy tres\ncuatro\n", editor.edit()["text"])
        editor.key("ctrl+s")
        self.wait_panel(editor, 3, "Saved")
        self.assertEqual(b"uno\ndos\nmy tres\ncuatro\n", path.read_bytes())
        self.assertEqual(b"of somebody else", (path.parent / "carrier.tmj.bak").read_bytes())


if __name__ == "__main__":
    unittest.main()
