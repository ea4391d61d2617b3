"""The key tester with real keys: what the display sends is what stands in its boxes."""

import re
import subprocess
import unittest

import harness
from editor_steps import EditorTest, park, plain
from harness import ini_value, probe, wait_for

SHIFT_LAMP, CTRL_LAMP, ALT_LAMP, NUM_LOCK_LAMP = 1501, 1502, 1503, 1504
MENUS, HEADING, WARNING, EVENTS, NAMES = 1505, 1506, 1507, 1508, 1509
TITLE = "Key Tester"
WARNING_TITLE = "Your Cougar needs a slap"

# The display's numbers of the keys. By its name xdotool would hold the left one down as well.
RIGHT_SHIFT, RIGHT_CONTROL, RIGHT_ALT, LEFT_WINDOWS = 62, 105, 108, 133

LIT = "#FFC080"
FONT_SIZES = 1138  # of the system's font dialog


def is_enabled(window):
    return next(facts["enabled"] for facts in probe().ask("windows")
                if facts["handle"] == window.handle)


def rect_of(items, caption):
    return next(item["rect"] for item in items if plain(item["caption"]) == caption)


def colour_at(x, y):
    """Of one pixel of the screen, as #RRGGBB."""
    answer = subprocess.run(
        ["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "txt:-"], check=True,
        timeout=harness.ANSWER_WITHIN, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    return re.search(r"#[0-9A-F]{6}", answer.stdout).group()


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
        """The key tester with an empty log."""
        self.editor = self.start_editor(*files)
        self.open_again()
        self.clear_all()

    def clear_all(self):
        """Also of the key that opened it or brought it to the front.

        It comes up in the key tester or before it, and what comes up is logged. Clicks are behind
        that key in the system's queue, so nothing of it comes after they have acted.
        """
        self.choose_from_bar(self.tester, "File", "Clear all")
        self.wait_equal("", self.events, "an empty log")

    def open_again(self):
        self.editor.key("F6")
        self.tester = self.editor.wait_window("KeyTestForm", TITLE)
        self.wait_keyboard(self.tester)
        controls = {child.id: child.handle for child in self.tester.children(visible=None)}
        self.boxes = controls[EVENTS], controls[NAMES]

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
        """Keys down one after the other and up in the opposite order.

        By one call: on a busy machine a second one may come so late that the keys repeat.
        """
        words = [word for key in keys for word in ("keydown", key)]
        words += [word for key in reversed(keys) for word in ("keyup", key)]
        harness.xdotool(*words)

    def events(self):
        return probe().ask("text", self.boxes[0])

    def names(self):
        return probe().ask("text", self.boxes[1])

    def is_lit(self, lamp):
        left, top, _, bottom = self.tester.child(id=lamp).rect
        return colour_at(left + 3, (top + bottom) // 2) == LIT

    def wait_lit(self, lamp, lit=True):
        self.wait_equal(lit, lambda: self.is_lit(lamp), f"the lamp {lamp} to be {lit}")

    def leave_to_editor(self):
        """To the main window as by the task bar: its window comes to the front with the keyboard."""
        title = self.editor.main.title
        harness.xdotool("search", "--onlyvisible", "--name", f"^{re.escape(title)}$",
                        "windowactivate")
        wait_for(lambda: self.editor.main.is_foreground()
                 and harness.title_with_keys() == title, "the keyboard in the main window")

    def return_to_tester(self):
        self.editor.key("F6")
        self.wait_keyboard(self.tester)
        self.clear_all()

    def close_tester(self):
        self.choose_from_bar(self.tester, "File", "Close")
        self.tester.wait_closed()

    def stored(self, key):
        return ini_value(self.host_ini, "Key Tester", key)

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
        for key in ("Shift_L", RIGHT_SHIFT, "Control_L", RIGHT_CONTROL, "Alt_L", RIGHT_ALT):
            self.press(key)
        self.expect(["Down: SHF", "Up: SHF"] * 2 + ["Down: CTL", "Up: CTL"] * 2
                    + ["Down: ALT", "Up: ALT"] * 2, ["Shift SHF", "Shift SHF"])

    def test_a_modifier_stays_held_until_both_of_its_keys_are_up(self):
        self.open_tester()
        harness.xdotool("keydown", "Shift_L", "keydown", RIGHT_SHIFT, "keyup", "Shift_L")
        self.press("q")
        self.expect(["Down: SHF", "Down: SHF", "Up: SHF", "Down: q", "Up: q"],
                    ["Shift SHF", "Shift SHF", "Shift q"])
        self.assertTrue(self.is_lit(SHIFT_LAMP))
        harness.xdotool("keyup", RIGHT_SHIFT)
        self.wait_lit(SHIFT_LAMP, False)

    def test_keys_of_the_keypad_and_the_system(self):
        self.open_tester()
        keys = [("KP_Divide", "KP/"), ("KP_Multiply", "KP*"), ("KP_Subtract", "KP-"),
                ("KP_Add", "KP+"), ("KP_Enter", "ENT"), ("Insert", "INS"), ("End", "END"),
                (LEFT_WINDOWS, "LWIN"), ("Pause", "PAUSE"), ("Scroll_Lock", "SCRL")]
        events = []
        for key, name in keys:
            self.press(key)
            events += [f"Down: {name}", f"Up: {name}"]
        self.press("Scroll_Lock")  # off again
        self.expect(events + ["Down: SCRL", "Up: SCRL"], [name for _, name in keys] + ["SCRL"])

    def test_print_screen(self):
        """Windows keeps its key-down to itself; what counts is that it comes up."""
        self.open_tester()
        self.press("Print")
        wait_for(lambda: self.events().endswith("Up: PRTSC\r\n"), "the key to come up")
        self.assertIn(self.events(), (lines_of("Up: PRTSC"), lines_of("Down: PRTSC", "Up: PRTSC")))

    def test_a_held_key_repeats(self):
        self.open_tester()
        harness.xdotool("keydown", "z")
        self.addCleanup(harness.xdotool, "keyup", "z")
        wait_for(lambda: self.events().count("Down: z") >= 3, "the key to repeat")
        harness.xdotool("keyup", "z")
        wait_for(lambda: "Up: z" in self.events(), "the key to come up")
        times = self.events().count("Down: z")
        self.expect(["Down: z"] * times + ["Up: z"], ["z"] * times)

    def test_num_lock_has_a_lamp_and_caps_lock_goes_off(self):
        self.open_tester()
        lit = self.is_lit(NUM_LOCK_LAMP)
        self.press("Num_Lock")
        self.addCleanup(lambda: self.is_lit(NUM_LOCK_LAMP) == lit or self.press("Num_Lock"))
        self.wait_lit(NUM_LOCK_LAMP, not lit)
        self.press("Num_Lock")
        self.wait_lit(NUM_LOCK_LAMP, lit)
        self.press("Caps_Lock")
        self.press("Caps_Lock")
        self.press("a")
        self.expect(["Down: NUML", "Up: NUML"] * 2 + ["Down: CAPS", "Up: CAPS"] * 2
                    + ["Down: a", "Up: a"], ["NUML", "NUML", "CAPS", "CAPS", "a"])

    def test_lamps_are_lit_while_their_keys_are_held(self):
        self.open_tester()
        for lamp, key in ((SHIFT_LAMP, "Shift_L"), (CTRL_LAMP, "Control_L"), (ALT_LAMP, "Alt_L")):
            self.assertFalse(self.is_lit(lamp))
            harness.xdotool("keydown", key)
            self.wait_lit(lamp)
            harness.xdotool("keyup", key)
            self.wait_lit(lamp, False)

    def test_no_lamp_stays_lit_for_a_key_that_comes_up_elsewhere(self):
        self.open_tester()
        harness.xdotool("keydown", "Control_L")
        self.addCleanup(harness.xdotool, "keyup", "Control_L")
        self.wait_lit(CTRL_LAMP)
        self.leave_to_editor()
        harness.xdotool("keyup", "Control_L")
        self.return_to_tester()
        self.assertFalse(self.is_lit(CTRL_LAMP))
        self.press("a")
        self.expect(["Down: a", "Up: a"], ["a"])

    def test_a_click_into_the_log_lets_no_key_edit_it(self):
        self.open_tester()
        self.press("F5")
        self.wait_equal(lines_of("Down: F5", "Up: F5"), self.events, "the events")
        self.tester.child(id=EVENTS).click()
        self.press("Delete")
        self.expect(["Down: F5", "Up: F5", "Down: DEL", "Up: DEL"], ["F5", "DEL"])
        self.assertEqual(self.boxes[1], probe().ask("focus")["focus"])

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
        self.assertEqual("65535", self.stored("ClearDelay"))

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
        pause = 0.5  # seconds; long against the delay, though not always on a busy machine
        while True:
            wait_for(lambda: self.events().endswith("Up: a\r\n"), "the first key")
            before = self.events()
            harness.time.sleep(pause)
            self.assertEqual(before, self.events(), "the pause itself clears nothing")
            self.press("b")
            wait_for(lambda: self.events().endswith("Up: b\r\n"), "the key after the pause")
            if self.events() == lines_of("Down: b", "Up: b"):
                break
            self.assertLess(pause, 20, "never cleared")
            pause *= 2
            self.press("a")
        self.assertEqual(lines_of("b"), self.names())

    def test_without_a_delay_nothing_is_cleared(self):
        self.open_tester()
        self.press("a")
        harness.time.sleep(1.5)  # longer than the longest delay
        self.press("b")
        self.expect(["Down: a", "Up: a", "Down: b", "Up: b"], ["a", "b"])


class Modes(KeyTester):
    def test_programmed_mode_is_left_alone(self):
        record = self.app_file("record.txt")
        self.control_panel(Record=harness.windows_path(record))
        self.open_tester()
        self.assertEqual([], self.tester.children(id=WARNING))
        self.assertFalse(record.exists())

    def test_a_mode_that_is_not_reported_gives_the_warning(self):
        record = self.app_file("record.txt")
        self.modes(Status="OK", Buttons=0)
        self.control_panel(Silent=1, Record=harness.windows_path(record))
        self.open_tester()
        self.tester.child(id=WARNING).click()
        box = self.editor.wait_dialog(WARNING_TITLE)
        self.assertIn("they didn't generate an error", box.text)
        self.assertFalse(is_enabled(self.editor.main), "no command may start behind the box")
        box.press("OK")
        self.wait_keyboard(self.tester)
        self.assertTrue(is_enabled(self.editor.main))
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
        box = self.editor.wait_dialog(WARNING_TITLE)
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
        self.leave_to_editor()
        self.editor.key("F9")
        self.editor.wait_dialog("Compile results").press("OK")
        self.assertFalse(self.tester.is_open())

    def test_the_box_of_a_download_comes_up_in_front_of_the_key_tester(self):
        self.compile_quickly()
        self.control_compiler(Delay=6000)
        self.open_tester(self.sample("airliner.tmj"))
        self.leave_to_editor()
        self.editor.key("ctrl+F9")
        wait_for(lambda: self.editor.panel(1).startswith(" Waiting for compiler"), "the download")
        self.return_to_tester()
        self.press("a")
        self.wait_equal(lines_of("Down: a", "Up: a"), self.events, "keys during the download")
        self.editor.wait_dialog("Compile results").press("OK")
        self.wait_keyboard(self.tester)


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

    def test_the_selected_lines_alone_are_copied(self):
        self.open_tester()
        self.press("F5")
        self.press("F7")
        self.wait_equal(lines_of("F5", "F7"), self.names, "the names")
        left, top, _, _ = self.tester.child(id=NAMES).rect
        harness.click(left + 20, top + 8)
        harness.right_click(left + 20, top + 8)
        self.choose_from_popup("Copy")
        self.close_tester()
        self.editor.key("ctrl+v")
        self.wait_equal("F5\n", lambda: self.editor.edit()["text"], "the line in the editor")

    def test_clear_all_empties_both_boxes(self):
        self.open_tester()
        self.press("F5")
        self.wait_equal(lines_of("F5"), self.names, "the names")
        self.choose_from_bar(self.tester, "File", "Clear all")
        self.expect([], [])


class Settings(KeyTester):
    def test_view_all_and_the_menus_are_switched(self):
        self.open_tester()
        self.assertEqual("Up/Down/Keycode events", self.tester.child(id=HEADING).text)
        self.choose_from_bar(self.tester, "View", "View all")
        self.wait_equal([], lambda: self.tester.children(id=EVENTS), "one box only")
        self.assertEqual("Events", self.tester.child(id=HEADING).text)
        self.assertEqual("#00FF00", self.colour_of_menus())
        self.tester.child(id=MENUS).click()
        wait_for(lambda: probe().ask("menu", self.tester.handle) == [], "no menus")
        park()
        self.wait_equal("#FF0000", self.colour_of_menus, "the red label")
        self.press("Alt_L", "F4")
        self.tester.wait_closed()
        self.assertEqual("0", self.stored("KeyViewAll"))
        self.assertEqual("0", self.stored("MenuDisplay"))

        self.open_again()
        self.assertEqual([], self.tester.children(id=EVENTS))
        self.assertEqual([], probe().ask("menu", self.tester.handle))
        self.tester.child(id=MENUS).click()
        wait_for(lambda: len(probe().ask("menu", self.tester.handle)) == 3, "the menus")
        self.choose_from_bar(self.tester, "View", "View all")
        wait_for(lambda: self.tester.children(id=EVENTS), "both boxes")
        self.close_tester()
        self.assertEqual("-1", self.stored("KeyViewAll"))
        self.assertEqual("1", self.stored("MenuDisplay"))

    def colour_of_menus(self):
        left, top, _, bottom = self.tester.child(id=MENUS).rect
        return colour_at(left + 3, (top + bottom) // 2)

    def test_the_clear_delay_is_ticked_and_kept(self):
        self.open_tester()
        self.choose_from_bar(self.tester, "Clear delay", "1000 ms")
        self.wait_equal([4], self.ticked_delays, "the tick")
        self.choose_from_bar(self.tester, "Clear delay", "400 ms")
        self.wait_equal([1], self.ticked_delays, "the tick")
        self.close_tester()
        self.assertEqual("1", self.stored("ClearDelay"))
        self.open_again()
        self.assertEqual([1], self.ticked_delays())

    def ticked_delays(self):
        items = probe().ask("menu", self.tester.handle)[2]["items"]
        return [number for number, item in enumerate(items) if item["checked"]]

    def test_place_and_size_are_kept(self):
        self.prefer("Key Tester", "KeyLeftAtStartup", 3000)
        self.prefer("Key Tester", "KeyTopAtStartup", 1500)
        self.prefer("Key Tester", "KeyWidthAtStartup", 9000)
        self.prefer("Key Tester", "KeyHeightAtStartup", 6000)
        self.open_tester()
        left, top, right, bottom = self.rect()
        self.assertEqual((600, 400), (right - left, bottom - top))
        harness.xdotool("search", "--name", f"^{TITLE}$", "windowsize", 700, 450,
                        "windowmove", 333, 222)
        before = left, top, right - left, bottom - top

        def moved_and_resized():
            left, top, right, bottom = self.rect()
            return all(old != new for old, new in zip(before, (left, top, right - left,
                                                               bottom - top)))

        wait_for(moved_and_resized, "another place and size")
        left, top, right, bottom = wait_steady(self.rect)
        self.close_tester()
        self.assertEqual([str(15 * length) for length in (left, top, right - left, bottom - top)],
                         [self.stored(f"Key{part}AtStartup")
                          for part in ("Left", "Top", "Width", "Height")])
        self.open_again()
        self.wait_equal([left, top, right, bottom], self.rect, "the place")

    def rect(self):
        return next(facts["rect"] for facts in probe().ask("windows")
                    if facts["handle"] == self.tester.handle)

    def test_the_font_is_chosen_for_both_boxes(self):
        self.open_tester()
        self.press("F5")
        self.wait_equal(lines_of("F5"), self.names, "the names")
        before = [self.picture(box) for box in (EVENTS, NAMES)]
        self.choose_from_bar(self.tester, "File", "Font...")
        dialog = self.editor.wait_dialog("Font")
        self.assertFalse(is_enabled(self.editor.main), "no command may start behind the dialog")
        sizes = next(child for child in dialog.children(kind="ComboBox") if child.id == FONT_SIZES)
        elsewhere = probe().ask("focus")["focus"]
        sizes.click()
        # The window manager may keep the click back while keys overtake it.
        wait_for(lambda: probe().ask("focus")["focus"] != elsewhere, "the keys in the list of sizes")
        harness.press_keys("ctrl+a")
        harness.type_text("24")
        dialog.press("OK")
        self.wait_keyboard(self.tester)
        park()
        for box, picture in zip((EVENTS, NAMES), before):
            wait_for(lambda box=box, picture=picture: self.picture(box) != picture, "larger text")
        self.screenshot("a larger font")

    def picture(self, box):
        left, top, right, bottom = self.tester.child(id=box).rect
        size = f"{right - left}x{bottom - top}+{left}+{top}"
        return subprocess.run(["import", "-window", "root", "-crop", size, "rgb:-"], check=True,
                              timeout=harness.ANSWER_WITHIN, stdin=subprocess.DEVNULL,
                              capture_output=True).stdout


def wait_steady(look):
    """What look() gives twice in a row."""
    seen = [look()]

    def again():
        seen.append(look())
        return seen[-1] == seen[-2]

    wait_for(again, "no more change")
    return seen[-1]


if __name__ == "__main__":
    unittest.main()
