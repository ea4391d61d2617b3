"""The main window as a whole: every menu item by its keys, every button by the mouse, the hints, and
the small windows and programs that the menus open."""

import datetime
import os
import unittest
from pathlib import Path

import harness
from editor_steps import EditorTest, park
from harness import ProbeError, ini_value, probe, wait_for, windows_path

JOYSTICK = "USE MDEF wing\nBTN S1 /I Gear\n/O Flaps\n"
MACROS = "Gear = g\nFlaps = f\n"
RECENT_FILES = 2000  # ids from here on are entries of that list
EXIT = 110

# Ids of the commands with the method of EveryCommand that proves each, and what of its help list it
# needs. In the order in which they are tried.
EFFECTS = {
    101: "new", 102: "open_dialog", 103: "save", 104: "save_as", 105: "save", 106: "close_tab",
    107: "print", 108: "printer_setup", 109: "clear_recent_files",
    201: "undo", 202: "cut", 203: "copy", 204: "paste", 205: "delete", 206: "select_all",
    207: "refresh_fonts", 208: "key_tester",
    301: "find", 302: "replace", 303: "goto_line",
    401: "view_macros", 402: "update_macro_list",
    501: "block_rem", 502: "block_un_rem", 503: "align", 504: "indent",
    601: "compile", 602: "download", 603: "enable_after_download", 604: "ignore_run_app",
    701: "wren", 702: "starter", 703: "control_panel",
    801: "help_topics", 802: "syntax", 803: "slash_modifiers", 804: "error_codes", 805: "version",
}

# Ids of the buttons at their indexes on the bar, 0 for a separator, and their hints.
BUTTONS = [101, 102, 103, 0, 107, 0, 202, 203, 204, 0, 301, 302, 303, 0, 401, 402, 0, 208, 0, 601, 602,
           0, 801]
HINTS = {
    101: "Create a new file",
    102: "Open a file",
    103: "Save currently selected file",
    107: "Print currently selected file",
    202: "Cut",
    203: "Copy",
    204: "Paste",
    301: "Find word or phrase in file",
    302: "Find word or phrase in file and replace with some other text",
    303: "Goto line number - useful when a download files with an error at a line number",
    401: "View the macros list",
    402: "Update macros in the macro list to reflect changes to the macro file",
    208: "Test the output from your controllers using the Keytester",
    601: "Compile joystick file",
    602: "Download joystick file to joystick",
    801: "View the help file",
}


class WindowTest(EditorTest):
    def setUp(self):
        super().setUp()
        # No printer, whatever this machine has.
        before = os.environ.get("CUPS_SERVER")
        os.environ["CUPS_SERVER"] = str(self.directory / "nobody")
        self.addCleanup(self.restore_server, before)
        self.compile_quickly()

    @staticmethod
    def restore_server(before):
        if before is None:
            del os.environ["CUPS_SERVER"]
        else:
            os.environ["CUPS_SERVER"] = before

    def start_with_pair(self):
        self.write_file("wing.tmm", MACROS.replace("\n", "\r\n"))
        self.file = self.write_file("wing.tmj", JOYSTICK.replace("\n", "\r\n"))
        self.editor = self.start_editor(self.file)
        self.wait_tabs(self.editor, "wing.tmj", "wing.tmm")
        self.to_joystick_file()

    def to_joystick_file(self):
        """Also brings the keys back to the text, wherever they were."""
        try:
            wait_for(lambda: self.is_in_the_text() or self.click_leads_to_the_text(),
                     "the joystick file's tab")
        finally:
            park()
        self.wait_front(self.editor.main)

    def is_in_the_text(self):
        return (self.editor.selected_tab() == "wing.tmj"
                and probe().ask("focus")["focus"] == self.editor.edit_box().handle)

    def click_leads_to_the_text(self):
        """Only where the click changes something: nobody could tell that another one has come, and
        the display may keep it back while keys overtake it. One that comes while a menu over the tab
        is still going from the screen is the menu's: then the user clicks again."""
        harness.click(*harness.middle(self.editor.tab_rect("wing.tmj")))
        try:
            wait_for(self.is_in_the_text, "the joystick file", 3)
        except AssertionError:
            return False
        return True

    def wait_front(self, window):
        """Until keys go to the window; what its frame looks like is the display's affair."""
        wait_for(window.is_foreground, f"\"{window.title}\" to be in front")
        return window

    def press(self, *keys):
        self.wait_front(self.editor.main)
        harness.press_keys(*keys)

    def close_window(self, window, *keys):
        self.wait_front(window)
        harness.press_keys(*keys)
        window.wait_closed()

    def window_of(self, executable):
        """The visible window of another program in the editor's folder, or None."""
        mine = windows_path(self.app_file(executable)).lower()
        return next((harness.Window(facts) for facts in probe().ask("windows")
                     if facts["visible"] and facts["program"].lower() == mine), None)

    def hover(self, point):
        x, y = point
        harness.xdotool("mousemove", x - 3, y, "sleep", 0.05, "mousemove", x, y)

    def tool_tips(self):
        mine = windows_path(self.editor.executable).lower()
        try:
            return [probe().ask("text", window["handle"]) for window in probe().ask("windows")
                    if window["visible"] and window["class"] == "tooltips_class32"
                    and window["program"].lower() == mine]
        except ProbeError:
            return []

    def buttons(self):
        return self.editor.main.child(kind="ToolbarWindow32").toolbar()

    def button_point(self, id):
        return harness.middle(next(button["rect"] for button in self.buttons() if button["id"] == id))


class EveryCommand(WindowTest):
    """One editor does all of them, one after the other."""

    def setUp(self):
        super().setUp()
        self.act = None
        self.start_with_pair()

    def test_every_menu_item_does_its_work_by_its_keys(self):
        found = []
        for number, menu in enumerate(self.editor.menu()):
            for item in self.items_of(number):
                if item["id"] in (0, EXIT) or item["id"] > RECENT_FILES:
                    continue
                found.append(item["id"])
                self.act = lambda keys=self.keys_of(menu, item): self.choose_by_keys(*keys)
                self.prove(item["id"])
        self.assertEqual(sorted(EFFECTS), sorted(found))
        self.press("ctrl+s")
        self.wait_panel(self.editor, 3, "Saved")
        self.choose_by_keys("alt+f", ["x"])
        self.assertEqual(0, self.editor.wait_end())

    def test_every_button_does_the_work_of_its_menu_item(self):
        self.assertEqual(BUTTONS, [button["id"] for button in self.buttons()])
        for id in BUTTONS:
            if id == 0:
                continue
            self.act = lambda id=id: self.click_button(id)
            self.prove(id)

    def items_of(self, number):
        return self.editor.menu()[number]["items"]

    def keys_of(self, menu, item):
        """What opens the menu, and what chooses the item in it."""
        def mnemonic(caption):
            plain = caption.split("\t")[0]
            return plain[plain.index("&") + 1].lower() if "&" in plain else None
        letter = mnemonic(item["caption"])
        # The one item without a letter is the last of its menu.
        return f"alt+{mnemonic(menu['caption'])}", [letter] if letter else ["Up", "Return"]

    def choose_by_keys(self, opening, choosing):
        self.press(opening)
        popup = self.editor.wait_window(harness.POPUP_MENU)
        harness.press_keys(*choosing)
        popup.wait_closed()

    def click_button(self, id):
        harness.click(*self.button_point(id))
        park()

    def prove(self, id):
        try:
            getattr(self, "do_" + EFFECTS[id])()
            self.to_joystick_file()
        except AssertionError as problem:
            raise AssertionError(f"command {id}: {problem}") from problem

    # Steps.

    def text(self):
        return self.editor.edit()["text"]

    def change(self, change, expected):
        """Does the command, sees the text change, and takes the change back."""
        before = self.text()
        self.act()
        self.wait_text(self.editor, expected)
        if change:
            self.press("ctrl+z")
            self.wait_text(self.editor, before)

    def select_first_line(self):
        self.press("ctrl+Home", "shift+End")
        self.wait_selection(self.editor, 0, len("USE MDEF wing"))

    def type_at_the_start(self, text):
        self.press("ctrl+Home")
        self.editor.type(text)
        wait_for(lambda: self.text().startswith(text), f"{text} to be typed")

    def dialog_opens(self, title):
        self.act()
        self.close_window(self.editor.wait_window(harness.DIALOG, title), "Escape")

    def toggles(self, look):
        before = look()
        for now in (not before, before):
            self.act()
            self.wait_equal(now, look, "the tick")

    # Effects.

    def do_new(self):
        self.act()
        self.wait_tabs(self.editor, "wing.tmj", "wing.tmm", "Untitled")
        self.press("ctrl+F4")
        self.wait_tabs(self.editor, "wing.tmj", "wing.tmm")

    def do_open_dialog(self):
        self.dialog_opens("Open")

    def do_save(self):
        self.type_at_the_start("x")
        self.wait_panel(self.editor, 3, "Modified")
        self.act()
        self.wait_panel(self.editor, 3, "Saved")
        self.assertTrue(self.file.read_bytes().startswith(b"xUSE"))
        self.press("BackSpace", "ctrl+s")
        self.wait_panel(self.editor, 3, "Saved")

    def do_save_as(self):
        self.dialog_opens("Save As")

    def do_close_tab(self):
        self.press("ctrl+n")
        self.wait_selected(self.editor, "Untitled")
        self.act()
        self.wait_tabs(self.editor, "wing.tmj", "wing.tmm")

    def do_print(self):
        self.act()
        box = self.editor.wait_window(harness.DIALOG, "No printer detected")
        self.assertIn("print out wing.tmj.", box.text)
        self.close_window(box, "Return")

    def do_printer_setup(self):
        self.act()
        # The system's own box says that there is none.
        box = wait_for(lambda: next(iter(self.editor.dialogs()), None), "the system's box")
        self.close_window(box, "Return")

    def do_clear_recent_files(self):
        self.act()
        self.wait_equal("0", lambda: self.own_ini("Previous Files", "NumberPreviousFiles"),
                        "the list of recent files")

    def do_undo(self):
        self.type_at_the_start("q")
        self.act()
        self.wait_text(self.editor, JOYSTICK)

    def do_cut(self):
        self.select_first_line()
        self.change(True, JOYSTICK[len("USE MDEF wing"):])

    def do_copy(self):
        self.select_first_line()
        self.act()
        self.press("ctrl+End", "ctrl+v")
        self.wait_text(self.editor, JOYSTICK + "USE MDEF wing")
        self.press("ctrl+z")
        self.wait_text(self.editor, JOYSTICK)

    def do_paste(self):
        self.select_first_line()
        self.press("ctrl+c", "ctrl+End")
        self.change(True, JOYSTICK + "USE MDEF wing")

    def do_delete(self):
        self.select_first_line()
        self.change(True, JOYSTICK[len("USE MDEF wing"):])

    def do_select_all(self):
        self.press("ctrl+Home")
        self.act()
        self.wait_selection(self.editor, 0, len(JOYSTICK))

    def do_refresh_fonts(self):
        self.change(False, JOYSTICK)

    def do_key_tester(self):
        self.act()
        self.close_window(self.editor.wait_window("KeyTestForm"), "alt+F4")

    def find_page_opens(self, page):
        self.act()
        dialog = self.editor.wait_window("FindAndReplace")
        self.wait_equal(page, lambda: dialog.child(id=1101).tabs()["selected"], "the page")
        self.close_window(dialog, "Escape")

    def do_find(self):
        self.find_page_opens(0)

    def do_replace(self):
        self.find_page_opens(1)

    def do_goto_line(self):
        self.find_page_opens(2)

    def do_view_macros(self):
        self.toggles(lambda: bool(self.editor.main.children(kind="FrameMacros")))

    def do_update_macro_list(self):
        self.editor.click_tab("wing.tmm")
        self.type_at_the_start("z")
        self.act()
        self.close_window(self.editor.wait_window(harness.DIALOG, "Save wing.tmm?"), "Escape")
        self.press("BackSpace", "ctrl+s")
        self.wait_panel(self.editor, 3, "Saved")

    def do_block_rem(self):
        self.press("ctrl+Home")
        before = self.text()
        self.act()
        wait_for(lambda: self.text().lower().startswith("rem "), "the comment")
        self.press("ctrl+z")
        self.wait_text(self.editor, before)

    def do_block_un_rem(self):
        self.type_at_the_start("Rem ")
        self.act()
        self.wait_text(self.editor, JOYSTICK)

    def do_align(self):
        self.press("ctrl+Home")
        self.act()
        wait_for(lambda: self.text().endswith("\n       /O Flaps\n"),
                 "the modifiers one below the other")
        self.press("ctrl+z")
        self.wait_text(self.editor, JOYSTICK)

    def ticks(self, menu, item):
        self.toggles(lambda: self.editor.menu_item(menu, item)["checked"])

    def do_indent(self):
        self.ticks("Tools", "Indent statements when aligning")

    def do_enable_after_download(self):
        self.ticks("Download", "Enable after download")

    def do_ignore_run_app(self):
        self.ticks("Download", "Ignore RUN_APP statements on download")

    def result_comes(self):
        self.press("ctrl+s")
        self.act()
        box = self.editor.wait_window(harness.DIALOG, "Compile results")
        self.assertTrue(box.text.startswith("wing.tmj was compiled successfully."), box.text)
        self.close_window(box, "Return")

    def do_compile(self):
        self.result_comes()

    def do_download(self):
        self.result_comes()

    def app_starts(self, executable):
        record = self.app_file("record.txt")
        record.unlink(missing_ok=True)
        self.app_file(executable).with_suffix(".control.ini").write_bytes(
            b"[Control]\r\nRecord=record.txt\r\n")
        self.act()
        window = wait_for(lambda: self.window_of(executable), f"the window of {executable}")
        directory = f"directory: {windows_path(self.app)}"
        self.assertIn(directory, record.read_text("utf-8").splitlines())
        # Another program's window: the keys are its own only when the display says so, too.
        wait_for(lambda: (harness.window_with_keys() or ("", ""))[1] == window.title,
                 f"\"{window.title}\" to have the keyboard")
        self.close_window(window, "alt+F4")

    def do_wren(self):
        self.app_starts("Wren.exe")

    def do_starter(self):
        self.app_starts("Starter.exe")

    def do_control_panel(self):
        self.app_starts("HOTASConfig.exe")

    def do_help_topics(self):
        # There is no help file: nothing is shown, and the editor goes on.
        self.act()
        self.type_at_the_start("h")
        self.assertEqual([self.editor.main.handle],
                         [window.handle for window in self.editor.windows()])
        self.press("ctrl+z")
        self.wait_text(self.editor, JOYSTICK)

    def page_opens(self, beginning):
        self.act()
        window = self.wait_front(self.editor.wait_window("InfoWindow"))
        self.wait_equal(beginning, lambda: window.child(id=1301).edit()["text"].split("\n")[0],
                        "the page")
        self.close_window(window, "Escape")

    def do_syntax(self):
        self.page_opens("Statement syntax")

    def do_slash_modifiers(self):
        self.page_opens("Slash modifiers")

    def do_error_codes(self):
        self.page_opens("Error codes")

    def do_version(self):
        self.act()
        box = self.editor.wait_window(harness.DIALOG, "Version information")
        self.assertEqual("Wren Deck - version 4.4.02\nWritten by the WrenDeck developers", box.text)
        self.close_window(box, "Return")


class Hints(WindowTest):
    def test_every_button_tells_its_hint_in_a_tip_and_in_the_first_panel(self):
        self.start_with_pair()
        for id, hint in HINTS.items():
            with self.subTest(hint):
                self.hover(self.button_point(id))
                self.wait_panel(self.editor, 1, hint)
                self.wait_equal([hint], self.tool_tips, "the tool tip")
                park()
                self.wait_equal([], self.tool_tips, "no tool tip")

    def test_no_tips_come_where_the_host_wants_none(self):
        self.prefer("Miscellaneous", "OKtoShowToolTips", 0)
        self.start_with_pair()
        self.hover(self.button_point(101))
        self.wait_panel(self.editor, 1, HINTS[101])
        # A tip of the tabs, which are no buttons, tells that the time for one has come.
        left, top, right, bottom = self.editor.tab_rect("wing.tmj")
        self.hover(((left + right) // 2, (top + bottom) // 2))
        self.wait_equal([windows_path(self.file)], self.tool_tips, "the tip of the tab")

    def test_a_compile_result_is_left_in_place_by_hints_but_not_by_the_greeting(self):
        self.start_with_pair()
        self.press("F9")
        self.close_window(self.editor.wait_window(harness.DIALOG, "Compile results"), "Return")
        result = self.editor.panel(1)
        self.assertTrue(result.startswith(" Compile"), result)
        self.hover(self.button_point(101))
        self.wait_equal([HINTS[101]], self.tool_tips, "the tool tip")
        self.assertEqual(result, self.editor.panel(1))
        self.hover(self.panel_point(self.editor, 2))
        self.wait_panel(self.editor, 1,
                        "Hi there buddy, welcome to WrenDeck  - another handy utility!")

    def test_the_clock_shows_the_minute(self):
        self.start_with_pair()

        def is_now():
            now = datetime.datetime.now().strftime("%I:%M %p").lstrip("0")
            return self.editor.panel(7) == now
        wait_for(is_now, "the time in panel 7")


class QuickHelp(WindowTest):
    def setUp(self):
        super().setUp()
        self.start_with_pair()

    def open(self, key="shift+F1"):
        self.press(key)
        return self.wait_front(self.editor.wait_window("InfoWindow"))

    def choose_page(self, item):
        self.choose(self.editor, "Help", item)

    def page(self):
        return self.editor.wait_window("InfoWindow").child(id=1301).edit()["text"].split("\n")[0]

    def test_one_window_shows_the_page_asked_for_and_remembers_its_place(self):
        window = self.open()
        self.assertEqual("Deck Quick Help", window.title)
        self.wait_equal("Statement syntax", self.page, "the page")
        self.choose_page("Error codes")
        self.wait_equal("Error codes", self.page, "the page")
        self.assertEqual(window.handle, self.editor.wait_window("InfoWindow").handle)
        # A window manager's keys are the program's here: the frame is dragged by hand.
        left, top, right, _ = window.rect
        harness.drag(((left + right) // 2, top + 8), ((left + right) // 2 - 60, top - 42))
        self.wait_equal([left - 60, top - 50],
                        lambda: self.editor.wait_window("InfoWindow").rect[:2], "the place")
        moved = self.editor.wait_window("InfoWindow").rect
        window.child(id=1302).click()
        window.wait_closed()
        ini = self.app_file("WrenDeck.ini")
        self.assertEqual(
            [moved[1] * 15, moved[0] * 15, (moved[3] - moved[1]) * 15, (moved[2] - moved[0]) * 15],
            [int(ini_value(ini, "Online Help", "InfoWindow" + side))
             for side in ("Top", "Left", "Height", "Width")])
        park()
        self.to_joystick_file()
        self.assertEqual(moved, self.open().rect)

    def test_it_opens_in_the_middle_of_the_screen(self):
        left, top, right, bottom = self.open().rect
        screen = harness.subprocess.run(["xdotool", "getdisplaygeometry"], capture_output=True,
                                        text=True, check=True).stdout.split()
        self.assertLessEqual(abs(left + right - int(screen[0])), 2)
        self.assertLessEqual(abs(top + bottom - int(screen[1])), 2)

    def test_a_missing_page_leaves_the_text(self):
        self.app_file("Info/Slash modifiers.rtf").unlink()
        self.open()
        self.wait_equal("Statement syntax", self.page, "the page")
        self.choose_page("Slash modifiers")
        self.choose_page("Error codes")
        self.wait_equal("Error codes", self.page, "the page")
        self.app_file("Info/Error codes.rtf").unlink()
        self.choose_page("Slash modifiers")
        self.choose_page("Error codes")
        self.assertEqual("Error codes", self.page())
        self.assertEqual([], self.editor.dialogs())

    def test_it_is_minimised_with_the_main_window_and_comes_back(self):
        self.open()
        main = self.editor.main
        harness.xdotool("windowminimize", *self.display_window("Wren Deck"))
        wait_for(lambda: self.editor.main.minimised, "the main window to be minimised")
        wait_for(lambda: all(window.kind != "InfoWindow" or window.minimised
                             for window in self.editor.windows()), "quick help to go with it")
        harness.xdotool("windowactivate", *self.display_window("Wren Deck"))
        wait_for(lambda: not self.editor.main.minimised, "the main window to come back")
        # The display gives it the keys a moment later, and would take them from quick help again.
        wait_for(lambda: harness.title_with_keys() == main.title,
                 "the display to give the main window the keys")
        self.wait_front(main)
        window = self.open()
        self.assertFalse(window.minimised)

    @staticmethod
    def display_window(title):
        return harness.subprocess.run(["xdotool", "search", "--name", f"^{title}$"],
                                      capture_output=True, text=True, check=True).stdout.split()

    def test_the_pointer_over_it_tells_what_it_is(self):
        window = self.open()
        self.hover(harness.middle(window.child(id=1301).rect))
        self.wait_panel(self.editor, 1, "Some online help for you to peruse!")
        self.hover(harness.middle(window.child(id=1302).rect))
        self.wait_panel(self.editor, 1, "Press the OK button when you're done.")

    def test_the_editor_stays_usable_beside_it(self):
        self.open()
        self.to_joystick_file()
        self.press("ctrl+Home")
        self.editor.type("u")
        self.wait_text(self.editor, "u" + JOYSTICK)


class Apps(WindowTest):
    def test_a_missing_program_is_asked_for(self):
        self.start_with_pair()
        for item, name in (("Wren", "Wren.exe"), ("Starter", "Starter.exe"),
                           ("HOTAS control panel", "HOTASConfig.exe")):
            self.app_file(name).unlink()
            self.choose(self.editor, "Apps", item)
            self.answer(self.editor, "Where is it?",
                        f"I couldn't find the application: {windows_path(self.app_file(name))} - how "
                        "very odd to say the least. What have you done with it? ")

    def test_the_older_help_opens_through_the_shell(self):
        self.prefer("Unsupported", "UseHLPnotCHM", 1)
        self.app_file("Wren.hlp").write_bytes(b"no help file of that format")
        self.start_with_pair()
        self.press("F1")

        def viewer():
            return next((window for window in probe().ask("windows") if window["visible"]
                         and Path(window["program"].replace("\\", "/")).name.lower()
                         == "winhlp32.exe"), None)
        wait_for(viewer, "the system's viewer of such files")


if __name__ == "__main__":
    unittest.main()
