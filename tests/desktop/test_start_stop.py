"""Starting beside the host program, and what is kept from one session to the next."""

import unittest

import harness
from editor_steps import EditorTest, park, set_ini_value
from harness import wait_for

TWIPS = 15  # a pixel's at 96 dpi
MISCELLANEOUS = "Miscellaneous"
PLACE_KEYS = ("EditorLeftAtStartup", "EditorTopAtStartup", "EditorWidthAtStartup",
              "EditorHeightAtStartup")
FRAME_MACROS = 1005


class Starting(EditorTest):
    def assert_refuses(self, title, text):
        program = self.start(self.app / "WrenDeck.exe")
        box = program.wait_dialog(title)
        self.assertEqual(text, box.text)
        self.assertEqual(["OK"], box.buttons())
        box.click("OK")
        self.assertEqual(1, program.wait_end())
        self.assertFalse(self.app_file("WrenDeck.ini").exists())

    def test_without_the_host_program_it_tells_so_and_ends(self):
        self.app_file("Wren.exe").unlink()
        self.app_file("Wren.ini").unlink()
        self.assert_refuses("Wren not detected",
                            "Sorry, but Deck requires Wren to run correctly. Make sure that "
                            "WrenDeck.exe is in the same directory as Wren.exe")

    def test_without_the_hosts_preferences_it_tells_so_and_ends(self):
        self.app_file("Wren.ini").unlink()
        self.assert_refuses("Wren incorrectly setup",
                            "Sorry, but Deck requires that you've setup your preferences in Wren. "
                            "Make sure that WrenDeck.exe is in the same directory as Wren.ini")

    def test_the_first_start_fills_the_screen_with_an_empty_document(self):
        editor = self.start_editor()
        self.assertEqual("Wren Deck", editor.main.title)
        self.assertTrue(editor.main.maximised)
        self.assertEqual(["Untitled"], editor.tab_captions())
        panels = editor.panels()
        self.assertEqual(["Line no: 1", "New file"], panels[1:3])
        self.assertEqual("No macro file analysed", panels[7])
        self.assertRegex(panels[6], r"^\d?\d:\d\d")
        self.quit(editor)
        self.assertEqual("2", self.own_ini(MISCELLANEOUS, "EditorWindowstate"))
        self.assertTrue(self.start_editor().main.maximised)


class WindowPlace(EditorTest):
    def place(self, left, top, width, height):
        for key, value in zip(PLACE_KEYS, (left, top, width, height)):
            set_ini_value(self.app_file("WrenDeck.ini"), MISCELLANEOUS, key, value * TWIPS)
        set_ini_value(self.app_file("WrenDeck.ini"), MISCELLANEOUS, "EditorWindowstate", 0)

    def wait_rect(self, editor, left, top, width, height):
        self.wait_equal([left, top, left + width, top + height], lambda: editor.main.rect,
                        "the window's place")

    def test_a_window_comes_back_where_the_user_had_put_it(self):
        self.place(100, 80, 700, 500)
        editor = self.start_editor()
        self.wait_rect(editor, 100, 80, 700, 500)
        self.assertFalse(editor.main.maximised)
        # The caption, beside its buttons and the icon.
        harness.drag((400, 88), (460, 128))
        self.wait_rect(editor, 160, 120, 700, 500)
        # What a drag of the corner makes of it; where the frame takes one depends on its theme.
        harness.xdotool("getactivewindow", "windowsize", 740, 560)
        wait_for(lambda: editor.main.rect[2:] != [860, 620], "a larger window")
        park()
        left, top, right, bottom = editor.main.rect
        self.quit(editor)
        self.assertEqual([str(value * TWIPS) for value in (left, top, right - left, bottom - top)],
                         [self.own_ini(MISCELLANEOUS, key) for key in PLACE_KEYS])
        self.assertEqual("0", self.own_ini(MISCELLANEOUS, "EditorWindowstate"))
        editor = self.start_editor()
        self.wait_rect(editor, left, top, right - left, bottom - top)

    def test_a_window_beside_every_screen_is_moved_onto_one(self):
        self.place(5000, 3000, 700, 500)
        editor = self.start_editor()

        def is_whole_in_view():
            left, top, right, bottom = editor.main.rect
            return ((right - left, bottom - top) == (700, 500) and left >= 0 and top >= 0
                    and right <= 1280 and bottom <= 1024)
        wait_for(is_whole_in_view, "the window to come onto the screen")


class Settings(EditorTest):
    def ticks(self, editor):
        return {item["caption"].replace("&", ""): item["checked"]
                for item in editor.menu_item("Download")["items"]}

    def test_the_ticks_of_the_download_menu_are_kept(self):
        editor = self.start_editor()
        enable, ignore = "Enable after download", "Ignore RUN_APP statements on download"
        self.assertEqual((True, False), (self.ticks(editor)[enable], self.ticks(editor)[ignore]))
        self.choose(editor, "Download", enable)
        self.choose(editor, "Download", ignore)
        self.wait_equal((False, True),
                        lambda: (self.ticks(editor)[enable], self.ticks(editor)[ignore]),
                        "the ticks")
        self.quit(editor)
        self.assertEqual("0", self.own_ini(MISCELLANEOUS, "EnableJoystick"))
        self.assertEqual("1", self.own_ini(MISCELLANEOUS, "RunAppsWithDownload"))
        editor = self.start_editor()
        self.assertEqual((False, True), (self.ticks(editor)[enable], self.ticks(editor)[ignore]))

    def panel_width(self, editor):
        left, _, right, _ = editor.main.child(id=FRAME_MACROS).rect
        return right - left

    def test_the_width_that_the_macro_panel_is_dragged_to_is_kept_at_once(self):
        editor = self.start_editor(self.sample("airliner.tmj"))
        self.wait_equal(300, lambda: self.panel_width(editor), "the panel's width")
        _, top, right, bottom = editor.main.child(id=FRAME_MACROS).rect
        middle = (top + bottom) // 2
        harness.drag((right - 2, middle), (right + 98, middle))
        self.wait_equal(400, lambda: self.panel_width(editor), "the panel's width")
        self.wait_equal("400", lambda: self.own_ini(MISCELLANEOUS, "MacroFrameWidth"),
                        "the setting")
        park()
        left, _, _, _ = editor.edit_box().rect
        self.assertEqual(403, left)
        self.quit(editor)
        # What is kept takes effect where the user copies it to; that is how it has always been.
        editor = self.start_editor(self.sample("airliner.tmj"))
        self.wait_equal(300, lambda: self.panel_width(editor), "the panel's width")

    def test_the_users_own_values_are_read_from_one_section_and_written_to_another(self):
        for key, value in [("MacroFrameWidth", 250), ("MaxPreviousFiles", 1), ("IndentSpaces", 3),
                           ("IndentAsWell", 1)]:
            set_ini_value(self.app_file("WrenDeck.ini"), "Unsupported", key, value)
        set_ini_value(self.app_file("WrenDeck.ini"), MISCELLANEOUS, "IndentSpaces", 8)
        editor = self.start_editor(self.sample("airliner.tmj"))
        self.wait_equal(250, lambda: self.panel_width(editor), "the panel's width")
        self.assertTrue(editor.menu_item("Tools", "Indent statements when aligning")["checked"])
        self.quit(editor)
        self.assertEqual("3", self.own_ini(MISCELLANEOUS, "IndentSpaces"))
        self.assertEqual("1", self.own_ini(MISCELLANEOUS, "MaxPreviousFiles"))
        self.assertEqual("1", self.own_ini(MISCELLANEOUS, "IndentAsWell"))
        # Of the joystick file and its macro file the last one opened is kept.
        self.assertEqual("1", self.own_ini("Previous Files", "NumberPreviousFiles"))
        self.assertTrue(self.own_ini("Previous Files", "PreviousFilePath1").endswith(
            "\\airliner.tmm"))

    def test_compiling_is_for_joystick_files_unless_the_host_wants_it_for_all(self):
        editor = self.start_editor()
        compile_item = editor.menu_item("Download", "Compile")
        self.assertFalse(compile_item["enabled"])
        self.quit(editor)
        self.prefer(MISCELLANEOUS, "AlwaysShowCompileDownload", 1)
        editor = self.start_editor()
        self.assertTrue(editor.menu_item("Download", "Compile Untitled")["enabled"])
        self.assertTrue(editor.menu_item("Download", "Download Untitled")["enabled"])


if __name__ == "__main__":
    unittest.main()
