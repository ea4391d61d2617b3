"""Find, replace and goto line: the dialog that stays open beside the text, by keys alone."""

import unittest

import harness
from editor_steps import EditorTest, park
from harness import wait_for

TITLE = "Find and replace"
LINES = "gun one\nGUN two\ngunner three\nlast gun\n"
COMPILES = "BTN T1 a\nBTN T2 b\n"
CAPTION = "guns.tmj"

# Numbers of the controls, as scripts know them.
TABS = 1101
FIND_WHAT, MATCH_CASE, WHOLE_WORD, FIND = 1111, 1112, 1113, 1114
REPLACE_FIND, REPLACE_WITH, REPLACE_FIND_BUTTON, REPLACE, REPLACE_ALL = 1121, 1122, 1125, 1126, 1127
LINE_TO_FIND = 1131


class FindTest(EditorTest):
    def setUp(self):
        super().setUp()
        self.editor = self.start_editor(self.write_file(CAPTION, LINES.replace("\n", "\r\n")))

    # The dialog.

    def dialog(self):
        return next(window for window in self.editor.windows() if window.title == TITLE)

    def open_dialog(self, key):
        self.editor.key(key)
        self.editor.wait_keyboard(self.editor.wait_window(title=TITLE))

    def control(self, number):
        return self.dialog().child(id=number)

    def shown_page(self):
        return self.control(TABS).tabs()["selected"]

    def find(self, text, start, end):
        """Opens the Find page, types the text and presses Enter."""
        self.open_dialog("ctrl+f")
        self.editor.type(text)
        self.editor.key("Return")
        self.wait_selection(self.editor, start, end)

    def wait_text_has_keys(self):
        wait_for(lambda: self.editor.main.is_foreground(), "the main window to have the keys")

    def wait_caption(self, number, caption):
        self.wait_equal(caption, lambda: self.control(number).text, f"caption of {number}")

    def answer_box(self, title, text):
        """Answers a message box of the dialog, which has the keys again afterwards."""
        box = self.wait_box(self.editor, title, text)
        self.editor.key("Return")
        box.wait_closed()


class Opening(FindTest):
    def test_each_shortcut_shows_its_page(self):
        for key, page, field, picture in (("ctrl+f", 0, FIND_WHAT, "find"),
                                          ("ctrl+h", 1, REPLACE_FIND, "replace"),
                                          ("ctrl+g", 2, LINE_TO_FIND, "goto-line")):
            self.open_dialog(key)
            self.wait_equal(page, self.shown_page, "the page")
            self.editor.type("2")
            # pylint: disable-next=cell-var-from-loop  # waited for before the next turn
            self.wait_equal("2", lambda: self.control(field).text, "what was typed")
            self.screenshot(picture)
            self.editor.key("Escape")
            self.editor.wait_no_window(TITLE)
            self.wait_text_has_keys()
        self.wait_text(self.editor, LINES)

    def test_the_menu_opens_it_too(self):
        for page, item in enumerate(("Find...", "Replace...", "Goto line...")):
            self.choose(self.editor, "Find", item)
            self.editor.wait_keyboard(self.editor.wait_window(title=TITLE))
            self.wait_equal(page, self.shown_page, "the page")
            self.editor.key("Escape")
            self.editor.wait_no_window(TITLE)

    def test_what_is_selected_is_looked_for(self):
        self.editor.key("shift+Right", "shift+Right", "shift+Right")
        self.open_dialog("ctrl+f")
        self.wait_equal("gun", lambda: self.control(FIND_WHAT).text, "the text to find")
        self.editor.key("Escape")
        self.editor.wait_no_window(TITLE)
        self.wait_text_has_keys()
        self.editor.key("Home")
        self.wait_selection(self.editor, 0, 0)
        self.open_dialog("ctrl+f")
        self.wait_equal("", lambda: self.control(FIND_WHAT).text, "no text to find")

    def test_replace_keeps_its_text_when_nothing_is_selected(self):
        self.open_dialog("ctrl+h")
        self.editor.type("kept")
        self.click_text()
        self.open_dialog("ctrl+h")
        self.assertEqual("kept", self.control(REPLACE_FIND).text)

    def click_text(self):
        """The mouse goes to the text, the dialog stays open."""
        left, _, _, bottom = self.editor.edit_box().rect
        harness.click(left + 20, bottom - 30)
        self.wait_text_has_keys()
        park()

    def test_the_pages_turn_by_keys(self):
        self.open_dialog("ctrl+f")
        for page in (1, 2, 0):
            self.editor.key("ctrl+Tab")
            self.wait_equal(page, self.shown_page, "the page")

    def test_the_text_and_its_menus_stay_usable(self):
        self.open_dialog("ctrl+f")
        self.click_text()
        self.editor.key("ctrl+Home")
        self.editor.type("x")
        self.wait_text(self.editor, "x" + LINES)
        self.assertEqual(0, self.shown_page())

    def test_the_pointer_over_it_says_what_it_is_for(self):
        self.open_dialog("ctrl+f")
        left, _, right, bottom = self.control(TABS).rect
        harness.move((left + right) // 2, bottom - 8)
        harness.move((left + right) // 2 + 3, bottom - 8)
        self.wait_panel(self.editor, 1, "Use the Find and Replace window for text searches, edits "
                                        "and to highlight lines in the currently selected file.")
        park()


class Finding(FindTest):
    def test_each_enter_and_f3_go_to_the_next_match(self):
        self.find("gun", 0, 3)
        self.wait_panel(self.editor, 2, "Line no: 1")
        self.wait_text_has_keys()
        self.wait_caption(FIND, "Find next")
        self.editor.key("F3")
        self.wait_selection(self.editor, 8, 11)
        self.wait_panel(self.editor, 2, "Line no: 2")
        self.editor.key("F3")
        self.wait_selection(self.editor, 16, 19)
        self.editor.key("F3")
        # The match ends its line: the panel tells the line of what follows.
        self.wait_selection(self.editor, 34, 37)
        self.wait_panel(self.editor, 2, "Line no: 5")
        self.editor.key("F3")
        self.answer_box("You found 'em all!",
                        f'No further instances of "gun" found in "{CAPTION}"')
        self.wait_caption(FIND, "Find first")
        self.editor.wait_keyboard(self.dialog())
        self.editor.key("Return")
        self.wait_selection(self.editor, 0, 3)

    def test_case_and_whole_words_by_their_mnemonics(self):
        self.open_dialog("ctrl+f")
        self.editor.key("alt+c", "alt+w", "alt+n")
        self.editor.type("gun")
        self.wait_equal((True, True), lambda: (self.control(MATCH_CASE).checked,
                                               self.control(WHOLE_WORD).checked), "both ticks")
        self.editor.key("Return")
        self.wait_selection(self.editor, 0, 3)
        self.editor.key("F3")
        self.wait_selection(self.editor, 34, 37)

    def test_what_is_not_there_is_told(self):
        self.open_dialog("ctrl+f")
        self.editor.type("missile")
        self.editor.key("Return")
        self.answer_box("Text not found", f'"missile" not found in "{CAPTION}"')
        self.wait_selection(self.editor, 0, 0)
        self.wait_caption(FIND, "Find first")
        # The focus is on the button: Enter presses it again.
        self.editor.wait_keyboard(self.dialog())
        self.editor.key("Return")
        self.answer_box("Text not found", f'"missile" not found in "{CAPTION}"')

    def test_nothing_to_search_for_is_told(self):
        self.open_dialog("ctrl+f")
        self.editor.key("Return")
        self.answer_box("Please enter text to search",
                        "You haven't specified the text to search for")

    def test_an_empty_document_is_told_on_either_page(self):
        self.editor.key("ctrl+n")
        self.wait_selected(self.editor, "Untitled")
        self.open_dialog("ctrl+f")
        self.editor.type("gun")
        self.editor.key("Return")
        self.answer_box("No text in file", "Untitled has no text to highlight.")
        self.assertEqual(["gun"], self.control(FIND_WHAT).combo()["items"])
        self.editor.wait_keyboard(self.dialog())
        self.editor.key("ctrl+Tab")
        self.wait_equal(1, self.shown_page, "the page")
        self.editor.type("gun")
        self.editor.key("Return")
        self.answer_box("No text in joystick file", "Untitled has no text to highlight.")

    def test_a_text_of_before_is_picked_from_the_list(self):
        self.find("two", 12, 15)
        self.open_dialog("ctrl+f")
        self.editor.key("ctrl+a")
        self.editor.type("three")
        self.editor.key("Return")
        self.wait_selection(self.editor, 23, 28)
        self.wait_panel(self.editor, 2, "Line no: 4")
        self.open_dialog("ctrl+f")
        self.assertEqual(["two", "three"], self.control(FIND_WHAT).combo()["items"])
        self.editor.key("Up")
        self.wait_equal("two", lambda: self.control(FIND_WHAT).text, "the picked text")
        self.wait_caption(FIND, "Find first")
        self.editor.key("Return")
        self.wait_selection(self.editor, 12, 15)

    def test_a_match_under_the_dialog_comes_to_be_seen(self):
        many = "".join(f"line {number} of the text\n" for number in range(1, 200))
        path = self.write_file("many.tmj", many.replace("\n", "\r\n"))
        self.open(self.editor, path.name)
        self.wait_text(self.editor, many)
        self.open_dialog("ctrl+f")
        self.editor.type("text")
        for _ in range(40):
            self.editor.key("F3")
        start = many.index("line 41 ")
        self.editor.key("F3")
        self.wait_selection(self.editor, start + 15, start + 19)
        box = self.editor.edit_box()
        left, top = harness.probe().ask("character", box.handle, start + 15)
        right, _ = harness.probe().ask("character", box.handle, start + 19)

        def is_clear():
            place = self.dialog().rect
            return (right <= place[0] or left >= place[2] or top + 16 <= place[1]
                    or top >= place[3])
        wait_for(is_clear, "the dialog to make way")
        self.screenshot("beside")


class Replacing(FindTest):
    def type_texts(self, find, replacement):
        self.open_dialog("ctrl+h")
        self.editor.type(find)
        self.editor.key("Tab")
        self.editor.type(replacement)

    def buttons(self):
        return [self.control(number).enabled for number in (REPLACE, REPLACE_ALL)]

    def test_one_match_after_the_other(self):
        self.type_texts("gun", "cannon")
        self.assertEqual([False, False], self.buttons())
        self.editor.key("Return")
        self.wait_selection(self.editor, 0, 3)
        self.wait_equal([True, True], self.buttons, "the buttons")
        self.screenshot("found")
        self.open_dialog("ctrl+h")
        self.editor.key("alt+r")
        self.wait_text(self.editor, "cannon" + LINES[3:])
        self.wait_equal([False, False], self.buttons, "the buttons")
        self.editor.key("Return")
        self.wait_selection(self.editor, 11, 14)
        self.wait_panel(self.editor, 3, "Modified")

    def test_all_at_once_and_one_undo(self):
        self.type_texts("gun", "cannon")
        self.editor.key("Return")
        self.wait_selection(self.editor, 0, 3)
        self.open_dialog("ctrl+h")
        self.editor.key("alt+a")
        self.answer_box("Replaced 'em all for you. Now buy me a drink",
                        f"4 replacements were made in {CAPTION}")
        self.wait_text(self.editor, "cannon one\ncannon two\ncannonner three\nlast cannon\n")
        self.wait_equal([False, False], self.buttons, "the buttons")
        self.wait_caption(REPLACE_FIND_BUTTON, "Find first")
        self.editor.key("Escape")
        self.editor.wait_no_window(TITLE)
        self.wait_text_has_keys()
        self.editor.key("ctrl+z")
        self.wait_text(self.editor, LINES)

    def test_options_go_for_both_pages(self):
        self.open_dialog("ctrl+f")
        self.editor.key("alt+c", "alt+w", "Escape")
        self.editor.wait_no_window(TITLE)
        # They live as long as the dialog.
        self.type_texts("gun", "x")
        self.editor.key("alt+c", "alt+w", "Return")
        self.wait_selection(self.editor, 0, 3)
        self.open_dialog("ctrl+h")
        self.editor.key("alt+a")
        self.answer_box("Replaced 'em all for you. Now buy me a drink",
                        f"2 replacements were made in {CAPTION}")
        self.wait_text(self.editor, "x one\nGUN two\ngunner three\nlast x\n")
        self.editor.wait_keyboard(self.dialog())
        self.editor.key("ctrl+shift+Tab")
        self.wait_equal((True, True), lambda: (self.control(MATCH_CASE).checked,
                                               self.control(WHOLE_WORD).checked), "both ticks")

    def test_a_match_that_is_no_longer_selected_is_left_alone(self):
        self.type_texts("gun", "cannon")
        self.editor.key("Return")
        self.wait_selection(self.editor, 0, 3)
        self.editor.key("Down", "Home", "shift+Right", "shift+Right", "shift+Right")
        self.wait_selection(self.editor, 8, 11)
        self.control(REPLACE).click()
        self.wait_equal([False, False], self.buttons, "the buttons")
        self.wait_text(self.editor, LINES)


class GoingToALine(FindTest):
    def go(self, number):
        self.open_dialog("ctrl+g")
        self.editor.type(number)
        self.editor.key("Return")

    def test_the_whole_line_is_selected(self):
        self.go("2.9")
        self.wait_selection(self.editor, 8, 16)
        self.wait_panel(self.editor, 2, "Line no: 2")
        self.wait_text_has_keys()

    def test_the_last_line_can_be_reached(self):
        self.go("5")
        self.wait_selection(self.editor, len(LINES), len(LINES))
        self.wait_panel(self.editor, 2, "Line no: 5")

    def test_what_is_no_line_is_told(self):
        for number in ("0", "-3", "word", "6", "99999999999999999999"):
            self.go(number)
            self.answer_box("Check the value you entered!", "The line number is invalid")
            self.wait_selection(self.editor, 0, 0)
            self.editor.wait_keyboard(self.dialog())
            self.editor.key("Escape")
            self.editor.wait_no_window(TITLE)


class Compiling(FindTest):
    def test_a_compile_minimises_it_and_the_next_search_brings_it_back(self):
        path = self.write_file("buttons.tmj", COMPILES.replace("\n", "\r\n"))
        self.open(self.editor, path.name)
        self.wait_text(self.editor, COMPILES)
        self.find("T2", 13, 15)
        self.editor.key("F9")
        self.answer(self.editor, "Compile results",
                    "buttons.tmj was compiled successfully.\n"
                    "Compiled file size: 1% of the Cougar memory.")
        self.assertEqual(["Editor"], [window.kind for window in self.editor.windows()
                                   if window.title != TITLE or not window.minimised])
        self.assertFalse(self.editor.main.minimised)
        self.editor.type("T3")
        self.wait_text(self.editor, COMPILES.replace("T2", "T3"))
        self.open_dialog("ctrl+h")
        self.assertFalse(self.dialog().minimised)
        self.wait_equal(1, self.shown_page, "the page")
        # It is the dialog of before.
        self.editor.key("ctrl+shift+Tab")
        self.assertEqual(["T2"], self.control(FIND_WHAT).combo()["items"])


if __name__ == "__main__":
    unittest.main()
