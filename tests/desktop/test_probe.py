"""The probe and the harness, proved on a window whose contents are known: probe_target.exe."""

import shutil
import subprocess
import unittest
from pathlib import Path

import harness
from harness import DesktopTest, ini_value, probe, wait_for

TABS, EDIT, STATUS, LIST, COMBO, TOOLBAR, FIELD, ASK = range(201, 209)
NEW, OPEN, SAVE = range(301, 304)


class ProbeTarget(DesktopTest):
    """Starts the target from the test's own directory, where it leaves its notes."""

    def setUp(self):
        super().setUp()
        executable = self.directory / "probe_target.exe"
        shutil.copy(harness.PROGRAMS / "probe_target.exe", executable)
        self.notes = executable.with_suffix(".ini")
        self.program = self.start(executable, "one", "t w o")
        self.window = self.program.wait_main("ProbeTarget")

    def wait_note(self, key, value):
        wait_for(lambda: ini_value(self.notes, "Target", key) == value, f"the note {key}={value}")


class Probing(ProbeTarget):
    def test_programs_start_without_random_addresses(self):
        """With them one start in 8,000 fails, see scripts/wine_env.sh."""
        if subprocess.run(["setarch", "-R", "true"], stderr=subprocess.DEVNULL,
                          check=False).returncode:
            self.skipTest("this machine does not allow it")
        no_random_addresses = 0x40000
        personality = Path(f"/proc/{self.program.unix_pid}/personality").read_text("ascii")
        self.assertTrue(int(personality, 16) & no_random_addresses)

    def test_windows_have_class_title_owner_and_program(self):
        self.assertEqual("ProbeTarget", self.window.kind)
        self.assertEqual('Probe target é one "t w o"', self.window.title)
        self.assertEqual(0, self.window.owner)
        self.assertEqual((600, 340), (self.window.rect[2] - self.window.rect[0],
                                      self.window.rect[3] - self.window.rect[1]))

    def test_controls_have_id_text_and_state(self):
        found = {child.id: child for child in self.window.children()}
        self.assertEqual({TABS, EDIT, STATUS, LIST, COMBO, TOOLBAR, FIELD, ASK}, set(found))
        self.assertEqual("plain field", found[FIELD].text)
        self.assertEqual("&Ask", found[ASK].text)
        self.assertTrue(all(child.visible and child.enabled for child in found.values()))
        self.assertEqual(found[ASK].handle, self.window.child(kind="button", text="Ask").handle)

    def test_status_bar_panels_have_text_tip_and_place(self):
        panels = self.window.child(id=STATUS).status()
        self.assertEqual([f"panel {number}" for number in range(1, 9)],
                         [panel["text"] for panel in panels])
        self.assertEqual([""] * 7 + ["Contains 3 macros and 2 headings"],
                         [panel["tip"] for panel in panels])
        edges = [panel["rect"][0] for panel in panels]
        self.assertEqual(sorted(edges), edges)

    def test_tabs_have_captions_and_a_selected_one(self):
        tabs = self.window.child(id=TABS).tabs()
        self.assertEqual(["Untitled", "airliner.tmj", "été.tmm"],
                         [item["caption"] for item in tabs["items"]])
        self.assertEqual(1, tabs["selected"])

    def test_rich_edit_text_and_selection_use_the_same_positions(self):
        edit = self.window.child(id=EDIT).edit()
        self.assertEqual('first line\nsecond é€ 中\n\nline four "quoted" \\ back', edit["text"])
        self.assertEqual("second", edit["text"][slice(*edit["selection"])])
        self.assertEqual((0, 4, False), (edit["firstVisibleLine"], edit["lines"], edit["readOnly"]))

    def test_plain_edit_box_is_read_as_well(self):
        field = self.window.child(id=FIELD)
        field.click()
        self.program.key("Home", "shift+Right", "shift+Right")
        wait_for(lambda: field.edit()["selection"] == [0, 2], "two selected characters")
        self.assertEqual("plain field", field.edit()["text"])

    def test_list_and_combo_have_items_and_selection(self):
        box = self.window.child(id=LIST)
        self.assertEqual(["Fire", "Flaps_Up", "Géar", "Brake"], box.items())
        self.assertEqual([2], box.selected_items())
        combo = self.window.child(id=COMBO).combo()
        self.assertEqual(["All", "Weapons"], combo["items"])
        self.assertEqual((1, "Weapons", False),
                         (combo["selected"], combo["text"], combo["dropped"]))

    def test_toolbar_buttons_have_id_and_state(self):
        buttons = self.window.child(id=TOOLBAR).toolbar()
        self.assertEqual([NEW, 0, OPEN, SAVE], [button["id"] for button in buttons])
        self.assertEqual([False, True, False, False], [button["separator"] for button in buttons])
        self.assertEqual([True, False, True],
                         [button["enabled"] for button in buttons if not button["separator"]])
        self.assertTrue(buttons[3]["checked"])

    def test_menu_items_have_caption_id_and_state(self):
        self.assertEqual(["&File"], [item["caption"] for item in self.program.menu()])
        self.assertEqual(NEW, self.program.menu_item("File", "New")["id"])
        opened = self.program.menu_item("File", "Open ...")
        self.assertEqual(("&Open ...\tCtrl+O", OPEN, False, False),
                         (opened["caption"], opened["id"], opened["enabled"], opened["checked"]))
        self.assertTrue(self.program.menu_item("File", "More", "Wrap")["checked"])
        self.assertTrue(self.program.menu()[0]["items"][2]["separator"])

    def test_reading_the_menu_leaves_the_program_as_it_was(self):
        for _ in range(3):
            self.program.menu()
        modules = Path(f"/proc/{self.program._process.pid}/maps").read_text(encoding="utf-8")
        self.assertIn("probe_target.exe", modules)
        self.assertNotIn("menu_guest.dll", modules)

    def test_focus_is_told(self):
        wait_for(self.window.is_foreground, "the window in the foreground")
        edit = self.window.child(id=EDIT)
        wait_for(lambda: probe().ask("focus")["focus"] == edit.handle, "the focus in the edit box")

    def test_the_clipboard_is_filled_and_read(self):
        harness.fill_clipboard("text=new", r"rtf={\rtf1{}old}")
        self.assertEqual("new", harness.clipboard_text())
        harness.fill_clipboard("picture")
        self.assertIsNone(harness.clipboard_text())
        self.assertFalse(probe().ask("clipboard")["empty"])

    def test_an_ended_window_is_an_error_and_not_an_empty_answer(self):
        handle = self.window.handle
        self.program.end()
        wait_for(lambda: not self.window.is_open(), "the end of the window")
        with self.assertRaises(harness.ProbeError):
            probe().ask("children", handle)


class Driving(ProbeTarget):
    def test_typed_text_arrives(self):
        edit = self.window.child(id=EDIT)
        self.program.key("ctrl+Home")
        self.program.type("Rem {/I~}\n\tUSE \"x\"; ")
        wait_for(lambda: edit.edit()["text"].startswith('Rem {/I~}\n\tUSE "x"; first line'),
                 "the typed text")

    def test_keys_choose_menu_commands(self):
        self.program.key("alt+f", "n")
        self.wait_note("command", "New")

    def test_a_message_box_is_read_and_answered_with_the_mouse(self):
        self.window.click("Ask")
        box = self.program.wait_dialog("Question")
        self.assertEqual("Save the é file?\n\nIt was changed.", box.text)
        self.assertEqual(["Yes", "No", "Cancel"], box.buttons())
        box.press("No")
        self.wait_note("answer", "7")
        self.assertEqual([], self.program.dialogs())

    def test_a_message_box_is_answered_with_a_key(self):
        self.window.click("Ask")
        box = self.program.wait_dialog("Question")
        self.program.key("Escape")
        box.wait_closed()
        self.wait_note("answer", "2")

    def test_tabs_are_clicked(self):
        self.program.click_tab("été.tmm")
        self.assertEqual("été.tmm", self.program.selected_tab())

    def test_list_items_are_clicked_and_double_clicked(self):
        box = self.window.child(id=LIST)
        box.click_item(0)
        wait_for(lambda: box.selected_items() == [0], "the first item to be selected")
        box.double_click_item(3)
        self.wait_note("doubleclicked", "3")

    def test_toolbar_buttons_are_clicked(self):
        self.program.toolbar_click(NEW)
        self.wait_note("command", "New")

    def test_a_character_is_clicked(self):
        edit = self.window.child(id=EDIT)
        edit.click_character(3)
        wait_for(lambda: edit.edit()["selection"] == [3, 3], "the caret behind the third character")

    def test_dragging_selects_text(self):
        edit = self.window.child(id=EDIT)
        start = probe().ask("character", edit.handle, 0)
        end = probe().ask("character", edit.handle, 5)
        harness.drag((start[0] + 1, start[1] + 5), (end[0] + 1, end[1] + 5))
        wait_for(lambda: edit.edit()["selection"] == [0, 5], "five selected characters")

    def test_an_open_popup_menu_is_read(self):
        self.window.child(id=FIELD)
        harness.right_click(self.window.rect[0] + 560, self.window.rect[1] + 280)
        items = self.program.popup_menu()
        self.assertEqual(["New from here"], [item["caption"] for item in items])
        harness.click(*harness.middle(items[0]["rect"]))
        self.wait_note("command", "New")

    def test_alt_f4_closes_the_program(self):
        self.program.close()
        self.assertEqual(0, self.program.wait_end())

    def test_the_end_of_a_program_is_not_mistaken_for_a_slow_one(self):
        self.program.end()
        with self.assertRaisesRegex(AssertionError, "ended with"):
            self.program.wait_dialog("Question")

    def test_a_screenshot_shows_the_screen(self):
        self.screenshot("target")
        data = (self.directory / "target.png").read_bytes()
        self.assertTrue(data.startswith(b"\x89PNG"))
        self.assertEqual((1280, 1024), (int.from_bytes(data[16:20], "big"),
                                        int.from_bytes(data[20:24], "big")))

    def test_ending_a_program_ends_what_it_started_as_well(self):
        self.program.key("alt+f", "s")
        another = self.program.wait_window("ProbeTarget", "Probe target é another")
        self.program.end()
        wait_for(lambda: not another.is_open(), "the end of the other window")
        self.assertFalse(self.window.is_open())

    def test_ending_a_program_leaves_the_others_alone(self):
        other = self.start(self.program.executable, "other")
        other.wait_window("ProbeTarget", "Probe target é other")
        self.program.end()
        wait_for(lambda: not self.window.is_open(), "the end of the window")
        self.assertTrue(other.is_running())


class Helpers(unittest.TestCase):
    def test_text_without_keys_is_refused_instead_of_typed_in_part(self):
        with self.assertRaises(ValueError):
            harness.type_text("été")

    def test_a_condition_that_never_holds_is_named(self):
        with self.assertRaisesRegex(AssertionError, "in vain for the moon"):
            harness.wait_for(lambda: False, "the moon", seconds=0.1)

    def test_ini_files_are_read_as_windows_wrote_them(self):
        path = harness.WORK / "helpers.ini"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(b"; note\r\n[Main]\r\nFile1=Z:\\a=b\\caf\xe9.tmj\r\nEmpty=\r\n"
                         b"[Other]\r\nwidth=300\r\nwidth=5%\r\n")
        self.assertEqual("Z:\\a=b\\café.tmj", harness.ini_value(path, "main", "FILE1"))
        self.assertEqual("", harness.ini_value(path, "Main", "Empty"))
        self.assertEqual("5%", harness.ini_value(path, "Other", "Width"))
        self.assertEqual("none", harness.ini_value(path, "Other", "Height", "none"))
        self.assertEqual({}, harness.read_ini(path.with_name("absent.ini")))


if __name__ == "__main__":
    unittest.main()
