"""Files and tabs: opening, saving, closing, the questions asked on the way, recent files."""

import unittest

import harness
from editor_steps import EditorTest, enter, park
from harness import windows_path

YES_NO = ("Yes", "No")
YES_NO_CANCEL = ("Yes", "No", "Cancel")


class DocumentsTest(EditorTest):
    """Has three small files, which name no macro file."""

    def setUp(self):
        super().setUp()
        self.first = self.write_file("a.tmj", "BTN T1 a\r\n")
        self.second = self.write_file("b.tmj", "BTN T2 b\r\n")
        self.macros = self.write_file("c.tmm", "FIRE = x\r\n")

    def wait_recent_files(self, editor, *paths):
        self.wait_equal([windows_path(path) for path in paths],
                        lambda: self.recent_files(editor), "the recent files")

    def wait_save_question(self, editor, caption, button):
        self.answer(editor, f"Save {caption}?",
                    f"{caption} isn't saved. Do you want to save it now?", button, YES_NO_CANCEL)


class Opening(DocumentsTest):
    def test_several_files_chosen_at_once_open_in_their_order(self):
        editor = self.start_editor()
        self.open(editor, "a.tmj", "b.tmj", "c.tmm")
        self.wait_tabs(editor, "a.tmj", "b.tmj", "c.tmm")
        self.wait_selected(editor, "c.tmm")
        self.wait_panel(editor, 1, "c.tmm successfully opened")
        self.wait_panel(editor, 8, "c.tmm")
        self.wait_recent_files(editor, self.macros, self.second, self.first)

    def test_an_open_file_opens_again_only_when_the_user_wants_it_to(self):
        editor = self.start_editor(self.first)
        question = (f"{windows_path(self.first)} is already open. "
                    "Do you still want me to open it up onto a different tab?")
        self.open(editor, "a.tmj")
        self.answer(editor, "File already open", question, "No", YES_NO)
        self.open(editor, "a.tmj", "b.tmj")
        self.answer(editor, "File already open", question, "No", YES_NO)
        self.wait_tabs(editor, "a.tmj", "b.tmj")
        self.open(editor, "a.tmj")
        self.answer(editor, "File already open", question, "Yes", YES_NO)
        self.wait_tabs(editor, "a.tmj", "b.tmj", "a.tmj")

    def test_a_cancelled_dialog_changes_nothing(self):
        editor = self.start_editor(self.first)
        editor.key("ctrl+o")
        self.cancel(editor, "Open")
        self.wait_panel(editor, 1, "a.tmj successfully opened")
        self.assertEqual(["a.tmj"], editor.tab_captions())

    def test_a_file_that_cannot_be_read_is_told_and_changes_nothing(self):
        damaged = self.write_file("damaged.tmj", b"BTN\0T1")
        editor = self.start_editor(self.first)
        self.open(editor, "damaged.tmj")
        box = editor.wait_dialog("Can't open file")
        self.assertTrue(box.text.startswith(f"{windows_path(damaged)} could not be opened.\n"))
        box.press("OK")
        self.wait_panel(editor, 1, "damaged.tmj could not be opened")
        self.assertEqual(["a.tmj"], editor.tab_captions())
        self.assertEqual([windows_path(self.first)], self.recent_files(editor))

    def test_typed_text_is_not_replaced_by_a_file(self):
        editor = self.start_editor()
        editor.type("BTN")
        self.open(editor, "a.tmj")
        self.wait_tabs(editor, "Untitled", "a.tmj")
        self.wait_text(editor, "BTN T1 a\n")

    def test_a_name_with_an_ampersand_is_shown_as_it_is(self):
        path = self.write_file("R&D.tmj", "BTN T1 a\r\n")
        editor = self.start_editor(path)
        # What the system shows as one "&".
        self.wait_tabs(editor, "R&&D.tmj")
        entry = next(item for item in editor.menu_item("File")["items"] if item["id"] > 2000)
        self.assertEqual(windows_path(path).replace("&", "&&"), entry["caption"])
        commands = [item["caption"] for item in editor.menu_item("Download")["items"]]
        self.assertIn("&Compile R&&D.tmj\tF9", commands)
        self.wait_panel(editor, 1, "R&D.tmj successfully opened")
        self.screenshot("ampersand")


class CommandLine(DocumentsTest):
    def start_with(self, *arguments, directory=None):
        editor = self.start(self.app / "WrenDeck.exe", *arguments, directory=directory)
        editor.wait_main("Editor")
        return editor

    def test_a_path_with_blanks_opens_on_the_first_tab(self):
        editor = self.start_with(windows_path(self.sample("Carrier Strike.tmj")))
        self.wait_tabs(editor, "Carrier Strike.tmj", "Carrier Strike.tmm")
        self.wait_selected(editor, "Carrier Strike.tmj")

    def test_a_relative_path_stays_the_same_file_when_the_current_folder_changes(self):
        path = self.write_file("two words.tmj", "BTN T1 a\r\n")
        # Two words: without quotes round them.
        editor = self.start_with("two", "words.tmj", directory=path.parent)
        self.wait_tabs(editor, "two words.tmj")
        self.wait_recent_files(editor, path)
        editor.key("F9")  # makes the program's directory the current one
        editor.wait_dialog("Compile results").press("OK")
        editor.type("REM ")
        editor.key("ctrl+s")
        self.wait_panel(editor, 3, "Saved")
        self.assertEqual(b"REM BTN T1 a\r\n", path.read_bytes())

    def test_a_name_without_a_file_is_ignored(self):
        editor = self.start_with("absent.tmj")
        self.wait_tabs(editor, "Untitled")
        self.assertEqual([], editor.dialogs())


class Saving(DocumentsTest):
    def test_save_as_asks_before_it_replaces_another_file(self):
        editor = self.start_editor(self.first)
        question = "b.tmj already exists. Do you want me to overwrite this file?"
        self.save_as(editor, "b.tmj")
        self.answer(editor, "OK to overwrite exisiting file?", question, "No", YES_NO)
        self.assertEqual(["a.tmj"], editor.tab_captions())
        self.assertEqual(b"BTN T2 b\r\n", self.second.read_bytes())
        self.save_as(editor, "b.tmj")
        self.answer(editor, "OK to overwrite exisiting file?", question, "Yes", YES_NO)
        self.wait_tabs(editor, "b.tmj")
        self.wait_panel(editor, 1, "b.tmj successfully saved")
        self.assertEqual(b"BTN T1 a\r\n", self.second.read_bytes())
        self.wait_recent_files(editor, self.second, self.first)

    def test_an_untitled_document_gets_a_name_with_the_extension_of_the_filter(self):
        editor = self.start_editor()
        editor.type("BTN T1 a\n")
        editor.key("ctrl+s")
        enter(editor.wait_dialog("Save As"), "new")
        self.wait_tabs(editor, "new.tmj")
        self.wait_panel(editor, 1, "new.tmj successfully saved")
        self.assertEqual(b"BTN T1 a\r\n", self.sample("new.tmj").read_bytes())

    def test_a_read_only_file_is_saved_elsewhere(self):
        self.first.chmod(0o444)
        editor = self.start_editor(self.first)
        editor.type("REM ")
        text = (f"{windows_path(self.first)} is read only. You'll need to save it elsewhere using "
                "the Save As routine. I'll run this for you now.")
        editor.key("ctrl+s")
        self.answer(editor, "Can't save Read Only file", text)
        self.cancel(editor, "Save As")
        self.wait_panel(editor, 3, "Modified")
        self.assertEqual(["a.tmj"], editor.tab_captions())
        editor.key("ctrl+s")
        self.answer(editor, "Can't save Read Only file", text)
        enter(editor.wait_dialog("Save As"), "elsewhere.tmj")
        self.wait_tabs(editor, "elsewhere.tmj")
        self.wait_panel(editor, 3, "Saved")
        self.assertEqual(b"BTN T1 a\r\n", self.first.read_bytes())
        self.assertEqual(b"REM BTN T1 a\r\n", self.sample("elsewhere.tmj").read_bytes())

    def test_save_all_saves_every_tab_and_comes_back(self):
        editor = self.start_editor(self.first)
        editor.type("REM ")
        self.open(editor, "b.tmj")
        self.wait_selected(editor, "b.tmj")
        editor.type("REM ")
        editor.key("ctrl+shift+Tab")
        self.wait_selected(editor, "a.tmj")
        editor.key("ctrl+shift+s")
        self.wait_panel(editor, 3, "Saved")
        self.wait_equal(b"REM BTN T2 b\r\n", self.second.read_bytes, "the second file")
        self.assertEqual(b"REM BTN T1 a\r\n", self.first.read_bytes())
        self.wait_selected(editor, "a.tmj")


class Closing(DocumentsTest):
    def test_a_changed_document_asks_what_to_do_with_it(self):
        editor = self.start_editor(self.first)
        editor.type("REM ")
        editor.key("ctrl+F4")
        self.wait_save_question(editor, "a.tmj", "Cancel")
        self.wait_text(editor, "REM BTN T1 a\n")
        self.assertEqual(["a.tmj"], editor.tab_captions())
        editor.key("ctrl+F4")
        self.wait_save_question(editor, "a.tmj", "No")
        self.wait_tabs(editor, "Untitled")
        self.wait_text(editor, "")
        self.assertEqual(b"BTN T1 a\r\n", self.first.read_bytes())
        self.open(editor, "b.tmj")
        self.wait_text(editor, "BTN T2 b\n")
        editor.type("REM ")
        editor.key("ctrl+F4")
        self.wait_save_question(editor, "b.tmj", "Yes")
        self.wait_tabs(editor, "Untitled")
        self.wait_panel(editor, 3, "New file")
        self.assertEqual(b"REM BTN T2 b\r\n", self.second.read_bytes())

    def test_a_middle_click_closes_the_tab_under_the_pointer(self):
        editor = self.start_editor()
        self.open(editor, "a.tmj", "b.tmj", "c.tmm")
        self.wait_tabs(editor, "a.tmj", "b.tmj", "c.tmm")
        harness.click(*harness.middle(editor.tab_rect("b.tmj")), button=2)
        self.wait_tabs(editor, "a.tmj", "c.tmm")
        self.wait_selected(editor, "c.tmm")
        self.wait_text(editor, "FIRE = x\n")
        park()

    def test_the_documents_that_stay_keep_their_undo_history(self):
        editor = self.start_editor(self.first)
        self.open(editor, "b.tmj")
        self.wait_selected(editor, "b.tmj")
        editor.type("REM ")
        self.wait_text(editor, "REM BTN T2 b\n")
        editor.key("ctrl+Tab", "ctrl+F4")
        self.wait_tabs(editor, "b.tmj")
        self.wait_text(editor, "REM BTN T2 b\n")
        self.wait_panel(editor, 3, "Modified")
        editor.key("ctrl+z")
        self.wait_text(editor, "BTN T2 b\n")

    def test_quitting_asks_for_each_changed_document_until_one_is_kept(self):
        editor = self.start_editor(self.first)
        editor.type("REM ")
        self.open(editor, "b.tmj")
        self.wait_selected(editor, "b.tmj")
        editor.type("REM ")
        self.open(editor, "c.tmm")
        self.wait_selected(editor, "c.tmm")
        editor.type("rem ")
        editor.close()
        self.wait_save_question(editor, "a.tmj", "Yes")
        self.wait_save_question(editor, "b.tmj", "No")
        self.wait_save_question(editor, "c.tmm", "Cancel")
        self.wait_selected(editor, "c.tmm")
        self.assertEqual(["a.tmj", "b.tmj", "c.tmm"], editor.tab_captions())
        self.assertEqual(b"REM BTN T1 a\r\n", self.first.read_bytes())
        editor.type("x")
        self.wait_text(editor, "rem xFIRE = x\n")
        # The first one is saved by now.
        editor.close()
        self.wait_save_question(editor, "b.tmj", "No")
        self.wait_save_question(editor, "c.tmm", "No")
        self.assertEqual(0, editor.wait_end())
        self.assertEqual(b"BTN T2 b\r\n", self.second.read_bytes())
        self.assertEqual(b"FIRE = x\r\n", self.macros.read_bytes())

    def test_a_save_that_is_cancelled_while_quitting_keeps_the_window(self):
        editor = self.start_editor()
        editor.type("BTN")
        editor.close()
        self.wait_save_question(editor, "Untitled", "Yes")
        self.cancel(editor, "Save As")
        editor.type(" T1")
        self.wait_text(editor, "BTN T1")


class Tabs(DocumentsTest):
    def test_keys_go_round_all_tabs_without_leaving_a_trace_in_the_text(self):
        editor = self.start_editor()
        self.open(editor, "a.tmj", "b.tmj", "c.tmm")
        self.wait_selected(editor, "c.tmm")
        for key, caption, text, message in [
                ("ctrl+Tab", "a.tmj", "BTN T1 a\n", "Editing a.tmj"),
                ("ctrl+Tab", "b.tmj", "BTN T2 b\n", "Editing b.tmj"),
                ("ctrl+shift+Tab", "a.tmj", "BTN T1 a\n", "Editing a.tmj"),
                ("ctrl+shift+Tab", "c.tmm", "FIRE = x\n", "Done")]:  # with its macros
            editor.key(key)
            self.wait_selected(editor, caption)
            self.wait_text(editor, text)
            self.wait_panel(editor, 3, "Saved")
            self.wait_panel(editor, 1, message)

    def test_a_new_document_is_untitled_and_new_until_something_is_typed(self):
        editor = self.start_editor(self.first)
        editor.key("ctrl+n")
        self.wait_tabs(editor, "a.tmj", "Untitled")
        self.wait_panel(editor, 1, "New file created for editing")
        self.wait_panel(editor, 3, "New file")
        editor.type("x")
        self.wait_panel(editor, 3, "Modified")
        editor.click_tab("a.tmj")
        self.wait_panel(editor, 3, "Saved")
        editor.click_tab("Untitled")
        self.wait_panel(editor, 3, "Modified")

    def test_pointing_at_a_tab_tells_its_name_and_its_path(self):
        editor = self.start_editor()
        self.open(editor, "a.tmj", "b.tmj")
        self.wait_tabs(editor, "a.tmj", "b.tmj")
        self.wait_tool_tip(editor, harness.middle(editor.tab_rect("a.tmj")),
                           windows_path(self.first))
        self.wait_panel(editor, 1, "Click to select a.tmj for editing.")
        self.wait_tool_tip(editor, harness.middle(editor.tab_rect("b.tmj")),
                           windows_path(self.second))
        self.wait_panel(editor, 1, "Click to select b.tmj for editing.")


class RecentFiles(DocumentsTest):
    def test_the_menu_opens_a_file_of_the_last_session(self):
        editor = self.start_editor(self.first)
        self.open(editor, "b.tmj")
        self.wait_recent_files(editor, self.second, self.first)
        self.quit(editor)
        self.assertEqual("2", self.own_ini("Previous Files", "NumberPreviousFiles"))
        self.assertEqual(windows_path(self.second),
                         self.own_ini("Previous Files", "PreviousFilePath1"))
        self.assertEqual(windows_path(self.first),
                         self.own_ini("Previous Files", "PreviousFilePath2"))
        editor = self.start_editor()
        self.wait_recent_files(editor, self.second, self.first)
        self.choose(editor, "File", windows_path(self.first))
        self.wait_tabs(editor, "a.tmj")
        self.wait_recent_files(editor, self.first, self.second)

    def test_a_file_that_is_gone_is_told_and_stays_in_the_menu(self):
        editor = self.start_editor(self.first)
        self.open(editor, "b.tmj")
        self.wait_recent_files(editor, self.second, self.first)
        self.first.unlink()
        self.choose(editor, "File", windows_path(self.first))
        self.answer(editor, "Can't find file",
                    f"There's a problem here ... I couldn't find {windows_path(self.first)} which "
                    "probably means you've deleted it or moved it. Sorry!")
        self.wait_recent_files(editor, self.second, self.first)

    def test_clearing_empties_the_menu_and_the_settings(self):
        editor = self.start_editor(self.first)
        self.wait_recent_files(editor, self.first)
        self.choose(editor, "File", "Clear recent files")
        self.wait_recent_files(editor)
        self.wait_own_ini("Previous Files", "NumberPreviousFiles", "0")
        self.wait_own_ini("Previous Files", "PreviousFilePath1", "")
        self.assertEqual(["a.tmj"], editor.tab_captions())


if __name__ == "__main__":
    unittest.main()
