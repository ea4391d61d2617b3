"""The key tester with real keys: what the display sends is what stands in its boxes."""

import subprocess
import unittest

import harness
from editor_steps import EditorTest, park, plain
from harness import ini_value, probe, wait_for

SHIFT_LAMP, MENUS, HEADING, WARNING, EVENTS, NAMES = 1501, 1505, 1506, 1507, 1508, 1509
TITLE = "Key Tester"


def rect_of(items, caption):
    return next(item["rect"] for item in items if plain(item["caption"]) == caption)


def lines_of(*texts):
    return "".join(text + "\r\n" for text in texts)


class KeyTester(EditorTest):
    def setUp(self):
        super().setUp()
        self.table = self.app_file("KeyCodes.txt")
        self.host_ini = self.app_file("Wren.ini")
        # Nothing is cleared while a slow machine thinks about the next key.
        self.prefer("Key Tester", "ClearDelay", 65535)
        self.modes(Status="OK", Buttons=1)

    def modes(self, **values):
        """What the controllers have reported about their mode."""
        lines = ["[TMMODE]", *[f"{key}={value}" for key, value in values.items()], ""]
        self.app_file("HOTAS.ini").write_bytes("\r\n".join(lines).encode("ascii"))

    def control_panel(self, **keys):
        """How the stand-in for the control panel program behaves."""
        lines = ["[Control]", *[f"{key}={value}" for key, value in keys.items()], ""]
        self.app_file("HOTASConfig.control.ini").write_bytes("\r\n".join(lines).encode("ascii"))

    def open_tester(self, *files):
        self.editor = self.start_editor(*files)
        self.editor.key("F6")
        self.tester = self.wait_tester()

    def wait_tester(self):
        """The key tester with an empty log.

        The key that opened it comes up in it or before it, and what comes up is logged. Clicks are
        behind that key in the system's queue, so nothing of it comes after they have acted.
        """
        tester = self.editor.wait_window("KeyTestForm", TITLE)
        self.wait_keyboard(tester)
        self.choose_from_bar(tester, "File", "Clear all")
        self.wait_equal("", lambda: tester.child(id=EVENTS).text, "an empty log")
        return tester

    def wait_keyboard(self, tester):
        wait_for(lambda: tester.is_foreground()
                 and (harness.window_with_keys() or ("", ""))[1] == TITLE,
                 "the key tester to have the keyboard")

    def choose_from_bar(self, tester, menu, item):
        """With the mouse: a key that chooses comes up in the key tester and is logged there."""
        bar = probe().ask("menu", tester.handle)
        harness.click(*harness.middle(rect_of(bar, menu)))
        self.choose_from_popup(item)

    def choose_from_popup(self, item):
        harness.click(*harness.middle(rect_of(self.editor.popup_menu(), item)))
        self.wait_no_popup()
        park()

    def wait_no_popup(self):
        wait_for(lambda: all(window.kind != harness.POPUP_MENU for window in self.editor.windows()),
                 "the menu to be gone")

    def press(self, *keys):
        """Keys down one after the other and up in the opposite order."""
        harness.xdotool("keydown", *keys)
        harness.xdotool("keyup", *reversed(keys))

    def events(self):
        return self.tester.child(id=EVENTS).text

    def names(self):
        return self.tester.child(id=NAMES).text

    def expect(self, events, names):
        self.wait_equal(lines_of(*events), self.events, "the events")
        self.wait_equal(lines_of(*names), self.names, "the names")


class Keys(KeyTester):
    def test_letters_with_and_without_modifiers(self):
        self.open_tester()
        self.press("a")
        self.press("Control_L", "a")
        self.press("Shift_L", "q")
        self.press("Alt_L", "f")
        self.press("5")
        self.expect(
            ["Down: a", "Up: a", "Down: CTL", "Down: a", "Up: a", "Up: CTL", "Down: SHF", "Down: q",
             "Up: q", "Up: SHF", "Down: ALT", "Down: f", "Up: f", "Up: ALT", "Down: 5", "Up: 5"],
            ["a", "Ctrl a", "Shift SHF", "Shift q", "Alt f", "5"])

    def test_keys_that_the_table_does_not_name(self):
        self.table.write_bytes(b"112,F1\r\n")
        self.open_tester()
        self.press("a")
        self.press("Control_L", "a")
        self.press("Shift_L", "q")
        self.press("Return")
        self.press("BackSpace")
        self.press("F5")
        self.expect(
            ["Down: a", "Up: a", "Down: CTL", "Down: a", "Up: a", "Up: CTL", "Down: SHF", "Down: q",
             "Up: q", "Up: SHF", "Down: 13", "Up: 13", "Down: 8", "Up: 8", "Down: 116", "Up: 116"],
            [" a", "Ctrl a"])

    def test_keys_that_windows_and_dialogs_act_on(self):
        self.open_tester()
        keys = [("F10", "F10"), ("F1", "F1"), ("Tab", "TAB"), ("Return", "ENT"), ("Escape", "ESC"),
                ("space", "SPC"), ("BackSpace", "BSP"), ("Delete", "DEL"), ("Menu", "APPS"),
                ("Left", "LARROW"), ("Prior", "PGUP"), ("F6", "F6"), ("F9", "F9")]
        events = []
        for key, name in keys:
            self.press(key)
            events += [f"Down: {name}", f"Up: {name}"]
        self.expect(events, [name for _, name in keys])
        self.assertFalse(any(window.kind == harness.POPUP_MENU for window in self.editor.windows()))

    def test_modifiers_by_themselves_on_both_sides(self):
        self.open_tester()
        for key in ("Shift_L", "Shift_R", "Control_L", "Control_R", "Alt_L"):
            self.press(key)
        self.expect(["Down: SHF", "Up: SHF", "Down: SHF", "Up: SHF", "Down: CTL", "Up: CTL",
                     "Down: CTL", "Up: CTL", "Down: ALT", "Up: ALT"], ["Shift SHF", "Shift SHF"])

    def test_the_main_windows_shortcuts_do_not_act(self):
        self.open_tester()
        self.press("Control_L", "n")
        self.press("F12")
        self.expect(["Down: CTL", "Down: n", "Up: n", "Up: CTL", "Down: F12", "Up: F12"],
                    ["Ctrl n", "F12"])
        self.assertEqual(["Untitled"], self.editor.tab_captions())
        self.assertEqual([], self.editor.dialogs())

    def test_alt_and_f4_closes_the_key_tester_only(self):
        self.open_tester()
        self.press("Alt_L", "F4")
        self.tester.wait_closed()
        self.assertTrue(self.editor.is_running())
        self.assertEqual("65535", ini_value(self.host_ini, "Key Tester", "ClearDelay"))

    def test_a_burst_is_logged_whole_and_in_order(self):
        self.open_tester()
        text = "".join(chr(ord("a") + number * 7 % 26) for number in range(500))
        subprocess.run(["xdotool", "type", "--delay", "1", "--", text], check=True, timeout=60)
        self.expect([line for letter in text for line in (f"Down: {letter}", f"Up: {letter}")],
                    list(text))

    def test_the_boxes_are_cleared_by_the_first_key_after_the_pause(self):
        self.prefer("Key Tester", "ClearDelay", 0)
        self.open_tester()
        self.press("a")
        wait_for(lambda: "Up: a" in self.events(), "the first key")
        harness.time.sleep(0.6)  # the pause is what is tested
        self.press("b")
        self.expect(["Down: b", "Up: b"], ["b"])


class Modes(KeyTester):
    def test_programmed_mode_is_left_alone(self):
        record = self.app_file("record.txt")
        self.control_panel(Record=harness.windows_path(record))
        self.open_tester()
        self.assertEqual([], self.tester.children(id=WARNING))
        self.assertFalse(record.exists())
        self.screenshot("without the warning")

    def test_a_mode_that_is_not_reported_gives_the_warning(self):
        record = self.app_file("record.txt")
        self.modes(Status="OK", Buttons=0)
        self.control_panel(Silent=1, Record=harness.windows_path(record))
        self.open_tester()
        self.screenshot("with the warning")
        self.tester.child(id=WARNING).click()
        box = self.editor.wait_dialog("Your Cougar needs a slap")
        self.assertIn("they didn't generate an error", box.text)
        box.press("OK")
        wait_for(self.tester.is_foreground, "the keyboard back in the key tester")
        wait_for(record.exists, "the control panel program's record")
        text = record.read_text(encoding="utf-8")
        self.assertRegex(text, r'command line: "?Z:\\.*\\HOTASConfig\.exe"? /MODE /WREN /BU\n')
        self.assertIn("directory: Z:\\\n", text)
        self.assertIn("show: 1\n", text)

    def test_an_error_is_told_in_its_own_words(self):
        self.modes(Status="ERROR", Buttons=0)
        self.control_panel(Silent=1)
        self.open_tester()
        self.tester.child(id=WARNING).click()
        box = self.editor.wait_dialog("Your Cougar needs a slap")
        self.assertIn("generated an error.", box.text)
        box.press("OK")

    def test_switch_stick_off_asks_for_windows_mode(self):
        self.open_tester()
        self.choose_from_bar(self.tester, "File", "Switch stick off")
        wait_for(lambda: ini_value(self.app_file("HOTAS.ini"), "TMMODE", "Buttons") == "0",
                 "the controllers in Windows mode")

    def test_a_compile_closes_the_key_tester(self):
        self.compile_quickly()
        self.open_tester(self.sample("airliner.tmj"))
        self.tester.child(id=NAMES).click()
        harness.click(*harness.middle(self.editor.main.rect))
        wait_for(lambda: not self.tester.is_foreground(), "the main window in front")
        self.editor.key("F9")
        self.editor.wait_dialog("Compile results").press("OK")
        self.assertFalse(self.tester.is_open())


class Table(KeyTester):
    def test_a_missing_table_is_restored(self):
        backup = self.app_file("Info/KeyCodes.txt").read_bytes()
        self.table.unlink()
        editor = self.start_editor()
        editor.key("F6")
        box = editor.wait_dialog("KeyCodes.txt is missing !!!")
        self.assertTrue(box.text.startswith("You're missing a critical file"))
        box.press("OK")
        box = editor.wait_dialog("Well I saved your butt!")
        self.assertEqual(harness.windows_path(self.table) + " has been successfully restored. "
                         "Please stop misbehaving with my file system!", box.text)
        box.press("OK")
        editor.wait_window("KeyTestForm", TITLE)
        self.assertEqual(backup, self.table.read_bytes())

    def test_without_a_backup_the_key_tester_does_not_open(self):
        self.table.unlink()
        self.app_file("Info/KeyCodes.txt").unlink()
        editor = self.start_editor()
        editor.key("F6")
        editor.wait_dialog("KeyCodes.txt is missing !!!").press("OK")
        box = editor.wait_dialog("It didn't work :(")
        self.assertEqual("I was unable to restore " + harness.windows_path(self.table) +
                         " - please close down the Key Tester and restore the file manually.",
                         box.text)
        box.press("OK")
        self.assertEqual(["Editor"], [window.kind for window in editor.windows()])


class Boxes(KeyTester):
    def choose_from_box(self, box, item):
        self.tester.child(id=box).right_click()
        self.choose_from_popup(item)

    def test_a_log_is_copied_saved_and_cleared(self):
        self.open_tester()
        self.press("F5")
        self.press("Control_L", "F5")
        log = lines_of("Down: F5", "Up: F5", "Down: CTL", "Down: F5", "Up: F5", "Up: CTL")
        self.wait_equal(log, self.events, "the events")

        self.choose_from_box(EVENTS, "Copy all")
        saved = self.app_file("Files/log.txt")
        self.choose_from_box(EVENTS, "Save as text...")
        self.editor.wait_dialog("Save As").enter_file(harness.windows_path(saved))
        wait_for(saved.exists, "the saved log")
        self.wait_equal(log.encode(), saved.read_bytes, "the log in its file")

        self.wait_keyboard(self.tester)
        self.choose_from_box(EVENTS, "Clear")
        self.wait_equal("", self.events, "an empty log")
        self.assertEqual(lines_of("F5", "Ctrl F5"), self.names())

        self.press("Alt_L", "F4")
        self.tester.wait_closed()
        self.editor.key("ctrl+v")
        self.wait_equal(log.replace("\r\n", "\n"), lambda: self.editor.edit()["text"],
                        "the log in the editor")

    def test_view_all_and_the_menus_are_switched(self):
        self.open_tester()
        self.assertEqual("Up/Down/Keycode events", self.tester.child(id=HEADING).text)
        self.choose_from_bar(self.tester, "View", "View all")
        self.wait_equal([], lambda: self.tester.children(id=EVENTS), "one box only")
        self.assertEqual("Events", self.tester.child(id=HEADING).text)
        self.tester.child(id=MENUS).click()
        wait_for(lambda: probe().ask("menu", self.tester.handle) == [], "no menus")
        self.press("Alt_L", "F4")
        self.tester.wait_closed()
        self.assertEqual("0", ini_value(self.host_ini, "Key Tester", "KeyViewAll"))
        self.assertEqual("0", ini_value(self.host_ini, "Key Tester", "MenuDisplay"))


if __name__ == "__main__":
    unittest.main()
