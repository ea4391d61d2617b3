"""The setting by which a second start hands its file to the editor that runs already."""

import time

import harness
from editor_steps import EditorTest, park, set_ini_value
from harness import wait_for, windows_path

ALREADY_OPEN = "File already open"
ATTEMPTS = 10
SOON_ENOUGH = 5  # seconds
PATIENT_FOR = 7  # seconds; it is still waiting then


class OneEditor(EditorTest):
    def setUp(self):
        super().setUp()
        set_ini_value(self.app_file("WrenDeck.ini"), "Unsupported", "SingleInstance", 1)

    def start_again(self, *files, directory=None):
        """A second start; it has no window of its own unless the first editor is too busy."""
        return self.start(self.app / "WrenDeck.exe", *files, directory=directory)

    def hand_over(self, *files, directory=None):
        self.assertEqual(0, self.start_again(*files, directory=directory).wait_end())

    def start_while_asked(self, editor, title, file):
        """A second start that waits for the answer to the first editor's box, that box, and when it
        was started: its patience ends after eight seconds.

        When the machine was too slow for an answer within them, all is done again.
        """
        for _ in range(ATTEMPTS):
            editor.close()
            box = editor.wait_dialog(title)
            started = time.monotonic()
            waiting = self.start_again(file)
            editor.wait_keyboard(box)
            if time.monotonic() - started < SOON_ENOUGH:
                self.assertTrue(waiting.is_running())
                return waiting, box, started
            waiting.end()
            editor.wait_keyboard(box)
            box.press("Cancel")
        raise AssertionError(f"{ATTEMPTS} times too slow for the second start's patience")

    def hand_over_while_asked(self, editor, title, file):
        """The box is left with Cancel, and the first editor takes the file."""
        for _ in range(ATTEMPTS):
            waiting, box, started = self.start_while_asked(editor, title, file)
            box.press("Cancel")
            in_time = time.monotonic() - started < PATIENT_FOR
            wait_for(lambda: not waiting.is_running() or len(self.editors()) == 2,
                     "the second start to hand its file over or to open it")
            if in_time or not waiting.is_running():
                self.assertEqual(0, waiting.wait_end())
                return
            waiting.end()
        raise AssertionError(f"{ATTEMPTS} times too slow for the second start's patience")

    def take_the_place_of(self, editor, title, own_file, file):
        """The box is left with No, and the second start becomes the editor, which comes back."""
        for _ in range(ATTEMPTS):
            waiting, box, started = self.start_while_asked(editor, title, file)
            box.press("No")
            self.assertEqual(0, editor.wait_end())
            if time.monotonic() - started < PATIENT_FOR:
                return waiting
            # It may have become an editor beside the first one, while that was there.
            waiting.end()
            editor = self.start_editor(own_file)
            editor.type("x")
        raise AssertionError(f"{ATTEMPTS} times too slow for the second start's patience")

    def editors(self):
        return [window for window in harness.probe().ask("windows")
                if window["class"] == "Editor" and window["visible"]
                and window["program"].lower() == windows_path(self.app / "WrenDeck.exe").lower()]

    def wait_front(self, editor):
        editor.wait_keyboard(editor.main)

    def cover(self):
        """Another program's window in front of the editor."""
        other = self.start(harness.PROGRAMS / "probe_target.exe")
        other.wait_keyboard(other.wait_window())
        return other

    def test_later_starts_hand_their_files_to_the_first_which_comes_to_the_front(self):
        first = self.sample("airliner.tmm")
        second = self.write_file("Two words.tmj", "BTN S1 A\r\n")
        editor = self.start_editor(first)
        cover = self.cover()
        self.hand_over(windows_path(second))
        self.wait_tabs(editor, "airliner.tmm", "Two words.tmj")
        self.wait_front(editor)
        cover.end()

        # A name without a folder counts from where the second start stands.
        other = self.directory / "elsewhere"
        other.mkdir()
        (other / "near.tmj").write_bytes(b"BTN S2 B\r\n")
        self.hand_over("near.tmj", directory=other)
        self.wait_tabs(editor, "airliner.tmm", "Two words.tmj", "near.tmj")
        self.wait_selected(editor, "near.tmj")
        self.wait_own_ini("Previous Files", "PreviousFilePath1", windows_path(other / "near.tmj"))

        # Without a file, or with one that is not there, the editor only comes to the front.
        harness.xdotool("getactivewindow", "windowminimize")
        wait_for(lambda: editor.main.minimised, "the editor to be minimised")
        self.hand_over()
        self.wait_front(editor)
        self.assertFalse(editor.main.minimised)
        self.hand_over(windows_path(self.sample("gone.tmj")))
        self.assertEqual(3, len(editor.tab_captions()))

        # A file that is open already: the usual question, and the second start does not wait for it.
        self.hand_over(windows_path(second))
        self.answer(editor, ALREADY_OPEN, windows_path(second) + " is already open. Do you still "
                    "want me to open it up onto a different tab?", "No", ("Yes", "No"))
        self.assertEqual(1, len(self.editors()))

        # While a box is open nothing is opened behind it, and nothing is lost.
        editor.type("x")
        late = windows_path(self.write_file("late.tmj", "BTN S3 C\r\n"))
        self.hand_over_while_asked(editor, "Save near.tmj?", late)
        self.wait_selected(editor, "late.tmj")

        # When the first one ends instead, the second start opens the file in an editor of its own.
        waiting = self.take_the_place_of(editor, "Save near.tmj?", other / "near.tmj",
                                         windows_path(second))
        waiting.wait_main("Editor")
        self.wait_tabs(waiting, "Two words.tmj")
        park()
        self.hand_over(windows_path(first))
        self.wait_tabs(waiting, "Two words.tmj", "airliner.tmm")

    def test_an_editor_that_stays_busy_leaves_the_file_to_one_of_its_own(self):
        editor = self.start_editor()
        editor.type("x")
        editor.close()
        editor.wait_dialog("Save Untitled?")
        second = self.start_again(windows_path(self.sample("airliner.tmm")))
        wait_for(lambda: len(self.editors()) == 2, "an editor of its own")
        self.assertTrue(second.is_running())

    def test_a_file_that_comes_while_a_compile_runs_is_opened_when_that_is_over(self):
        self.compile_quickly()
        self.control_compiler(NeverAnswer=1, Record="record.txt")
        editor = self.start_editor(self.write_file("test.tmj", "BTN T1 a\r\n"))
        editor.key("F9")
        wait_for(self.app_file("record.txt").exists, "the compiler to run")
        cover = self.cover()
        waiting = self.start_again(windows_path(self.write_file("late.tmj", "BTN S3 C\r\n")))
        self.wait_front(editor)
        cover.end()
        self.wait_panel(editor, 1, "Compiling test.tmj ..... please wait ...")
        self.assertTrue(waiting.is_running())
        self.assertEqual(["test.tmj"], editor.tab_captions())
        self.let_compiler_answer()
        self.answer(editor, "Compile results", "test.tmj was compiled successfully.\n"
                    "Compiled file size: 7% of the Cougar memory.")
        self.assertEqual(0, waiting.wait_end())
        self.wait_tabs(editor, "test.tmj", "late.tmj")
        self.wait_selected(editor, "late.tmj")

    def test_without_the_setting_every_start_is_an_editor_of_its_own(self):
        set_ini_value(self.app_file("WrenDeck.ini"), "Unsupported", "SingleInstance", 2)
        self.start_editor()
        self.start_again()
        wait_for(lambda: len(self.editors()) == 2, "a second editor")
