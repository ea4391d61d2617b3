"""Settings files that no program would write: the editor comes up, works and ends."""

import unittest

from editor_steps import EditorTest

HOST = (b"[Miscellaneous]\r\nOKtoShowToolTips=-32769\r\nAlwaysShowCompileDownload=x\r\n"
        b"[Unsupported]\r\nForeignLanguageKBInputFix=99999999999999999999\r\n"
        b"UseHLPnotCHM=-1\r\nRegainControlAfter=-5\r\nCheckForCompletionTime=" + b"9" * 100_000 +
        b"\r\n[FileLocations]\r\nHOTASStatusBarErrors=nan\r\n"
        b"[Key Tester]\r\nKeyTopAtStartup=-1e39\r\nClearDelay=-7\r\n")
OWN = (b"[Miscellaneous]\r\nEditorTopAtStartup=-1e30\r\nEditorLeftAtStartup=1e30\r\n"
       b"EditorWidthAtStartup=1e30\r\nEditorHeightAtStartup=-5\r\nEditorWindowstate=0\r\n"
       b"EnableJoystick=\xff\r\nInfoTopAtStartup=1e9\r\n"
       b"[Unsupported]\r\nMacroFrameWidth=32767\r\nMaxPreviousFiles=-3\r\nIndentSpaces=32767\r\n"
       b"[Previous Files]\r\nNumberPreviousFiles=32767\r\nPreviousFilePath1=" + b"x" * 100_000 +
       b"\r\n")
BINARY = bytes(range(256)) * 64
HUGE = b"; ten megabytes\r\n" + b"[Section]\r\nKey=value\r\n" * 500_000


class SettingsFiles(EditorTest):
    def test_the_editor_works_with_any_file_of_the_host(self):
        for data in (HOST, BINARY):
            self.app_file("Wren.ini").write_bytes(data)
            self.edit_and_quit()
            self.assertEqual(data, self.app_file("Wren.ini").read_bytes(), "the host's own file")

    def test_the_editor_works_with_any_file_of_its_own(self):
        for name, data in (("hostile", OWN), ("binary", BINARY), ("huge", HUGE)):
            with self.subTest(name):
                self.app_file("WrenDeck.ini").write_bytes(data)
                self.edit_and_quit()
                self.assertIn(b"EnableJoystick=", self.app_file("WrenDeck.ini").read_bytes())

    def edit_and_quit(self):
        path = self.write_file("a.tmj", "BTN S1 X\r\n")
        editor = self.start_editor(path)
        editor.type("rem ")
        editor.key("ctrl+s")
        self.wait_panel(editor, 3, "Saved")
        self.assertTrue(path.read_bytes().startswith(b"rem "))
        editor.close()
        self.assertEqual(0, editor.wait_end())


if __name__ == "__main__":
    unittest.main()
