"""Compiling with a compiler that answers, refuses, lies or never answers at all."""

import shutil
import unittest

from editor_steps import EditorTest
from harness import ini_value, wait_for, windows_path

UNSUCCESSFUL = "The compile was unsuccessful"
RESULTS = "Compile results"
SUCCESS = " Compiled successfully. (Memory used: {}%)"
BIZARRE = ("Hmmm ... bizarre! The line number is invalid. That doesn't make sense.\n\n"
           "Please report this on the Hangar forums so I can investigate further. Interesting!")
TOO_LONG = "Now this is taking rather a long time buddy, isn't it?!"
TOO_LONG_TEXT = (
    "I'm going to pass control back to you now, as I'm worried that there may be a problem with "
    "the compiler and its communication with your Cougar - it's just taking too long for my "
    "liking. I could be wrong of course, but I'd prefer to play it safe, and I presume you do "
    "too.\n\nIf you know for certain that there isn't a problem with your Cougar or your files, "
    "then you can increase the amount of time I sit around waiting for the compiler to compile "
    "your file. To do this, see the help topic 'Unsupported options.'")
TEXT = "BTN T1 a\nBTN T2 b\nBTN T3 c\n"
WAITING = "Compiling test.tmj ..... please wait ..."


class CompileTest(EditorTest):
    def setUp(self):
        super().setUp()
        self.compile_quickly()
        self.file = self.write_file("test.tmj", TEXT.replace("\n", "\r\n"))
        self.record = self.app_file("record.txt")

    def recorded(self):
        """How the compiler was started: command line and directory of each start."""
        if not self.record.exists():
            return []
        blocks = self.record.read_text(encoding="utf-8").strip().split("\n\n")
        return [tuple(line.split(": ", 1)[1] for line in block.splitlines()[:2])
                for block in blocks]

    def wait_starts(self, count):
        wait_for(lambda: len(self.recorded()) == count, f"start {count} of the compiler")

    def success_text(self, memory, caption="test.tmj"):
        return (f"{caption} was compiled successfully.\n"
                f"Compiled file size: {memory}% of the Cougar memory.")

    def wait_success(self, editor, memory=1):
        self.answer(editor, RESULTS, self.success_text(memory))
        self.wait_panel(editor, 1, SUCCESS.format(memory))


class Refusing(CompileTest):
    def test_an_empty_document_is_not_compiled(self):
        editor = self.start_editor(self.write_file("empty.tmj", ""))
        editor.key("F9")
        self.answer(editor, "Nothing to compile ...",
                    "The current file is empty, so there's not much point in me trying to compile "
                    "it!. Load up a joystick file, or select one, or just put your feet up and "
                    "watch TV.")

    def test_a_missing_compiler_is_told_with_its_path(self):
        compiler = self.app_file("HOTASCompiler.exe")
        compiler.unlink()
        editor = self.start_editor(self.file)
        editor.key("F9")
        self.answer(editor, "Compiler not found",
                    "I couldn't locate the Compiler, which according to Wren's preferences should "
                    f"be at: {windows_path(compiler)}, so I cannot compile the file. Sorry buddy!")

    def test_a_document_that_was_not_saved_after_all_is_not_compiled(self):
        self.prefer("Miscellaneous", "AlwaysShowCompileDownload", 1)
        self.control_compiler(Record="record.txt")
        editor = self.start_editor()
        editor.type("BTN T1 a")
        editor.key("F9")
        self.cancel(editor, "Save As")
        box = self.wait_box(editor, "Hang on a minute ...",
                            "The current file isn't saved, which it needs to be for me to be able "
                            "to compile it", ("Yes", "No"))
        editor.key("Return")
        box.wait_closed()
        self.wait_panel(editor, 3, "Modified")
        # The next one does start the compiler, and is the first that does.
        self.open(editor, "test.tmj")
        self.wait_selected(editor, "test.tmj")
        editor.key("F9")
        self.wait_success(editor)
        self.assertEqual(1, len(self.recorded()))


class Starting(CompileTest):
    def assert_started(self, app, quoted_by_wine):
        record = app / "record.txt"
        (app / "HOTASCompiler.control.ini").write_text("[Control]\nRecord=record.txt\n")
        editor = self.start(app / "WrenDeck.exe", windows_path(app / "Files" / "test.tmj"),
                            directory=self.directory)
        editor.wait_main("Editor")
        self.wait_tabs(editor, "test.tmj")
        editor.key("F9")
        self.wait_success(editor)
        self.record = record
        compiler = windows_path(app / "HOTASCompiler.exe")
        file = windows_path(app / "Files" / "test.tmj")
        # Wine puts the quotes round a program path with blanks before the program sees its line.
        program = f'"{compiler}"' if quoted_by_wine else compiler
        self.assertEqual([(f'{program} /WREN /CO "{file}"', windows_path(app))], self.recorded())
        self.assertEqual(file, ini_value(app / "HOTAS.ini", "Compiler", "FileName"))

    def test_the_compiler_gets_the_file_in_quotes_and_runs_in_its_own_directory(self):
        self.assert_started(self.app, quoted_by_wine=False)

    def test_the_compiler_is_found_in_a_directory_with_a_blank(self):
        blank = self.directory / "My HOTAS"
        shutil.move(self.app, blank)
        self.assert_started(blank, quoted_by_wine=True)


class Reporting(CompileTest):
    def setUp(self):
        super().setUp()
        self.error = "Error 2001: unknown"

    def compile_with_error(self, editor, number, error=None):
        self.control_compiler(Status="ERROR", LineNumber=number, ErrorCode=error or self.error)
        editor.key("F9")

    def wait_error(self, editor, place):
        text = f"Compiler reported {place}: {self.error}"
        self.answer(editor, UNSUCCESSFUL, text)
        self.wait_panel(editor, 1, f" {text}")

    def test_a_line_number_that_is_none_of_the_document_selects_nothing(self):
        editor = self.start_editor(self.file)
        editor.key("Right")
        self.wait_selection(editor, 1, 1)
        self.compile_with_error(editor, 0)
        self.wait_error(editor, "the following error")
        # More than the 16 bits of a line number: as if there were none.
        self.compile_with_error(editor, 70000)
        self.wait_error(editor, "the following error")
        self.compile_with_error(editor, 9999)
        self.wait_error(editor, "an error at line 9999")
        self.answer(editor, "Hmmm....bizarre...", BIZARRE)
        self.compile_with_error(editor, -5)
        self.wait_error(editor, "an error at line-5")
        self.answer(editor, "Hmmm....bizarre...", BIZARRE)
        self.assertEqual([1, 1], editor.edit()["selection"])

    def test_the_last_line_is_selected_up_to_the_end_of_the_text(self):
        editor = self.start_editor(self.write_file("test.tmj", "BTN T1 a\r\nBTN T2 b"))
        self.compile_with_error(editor, 2)
        self.wait_error(editor, "an error at line 2")
        self.wait_selection(editor, 9, 17)
        self.wait_panel(editor, 2, "Line no: 2")

    def test_error_1013_selects_nothing(self):
        editor = self.start_editor(self.file)
        self.error = "Error 1013: somewhere"
        self.compile_with_error(editor, 2)
        self.wait_error(editor, "an error at line 2")
        editor.key("Down")
        self.wait_panel(editor, 2, "Line no: 2")
        self.assertEqual([9, 9], editor.edit()["selection"])

    def test_the_host_can_keep_results_to_the_status_bar(self):
        self.prefer("FileLocations", "HOTASStatusBarErrors", 1)
        editor = self.start_editor(self.file)
        editor.key("F9")
        self.wait_panel(editor, 1, SUCCESS.format(1))
        self.compile_with_error(editor, 2)
        self.wait_panel(editor, 1, f" Compiler reported an error at line 2: {self.error}")
        self.wait_selection(editor, 9, 18)
        self.assertEqual([], editor.dialogs())


class Beside(CompileTest):
    def test_a_compile_minimises_quick_help_and_not_the_editor(self):
        editor = self.start_editor(self.file)
        editor.key("shift+F1")
        editor.wait_window(title="Deck Quick Help")
        editor.edit_box().click_character(0)
        wait_for(lambda: editor.main.is_foreground(), "the editor to have the keys")
        editor.key("F9")
        self.wait_success(editor)
        self.assertFalse(editor.main.minimised)
        self.assertEqual([], [window for window in editor.windows()
                              if window.title == "Deck Quick Help" and not window.minimised])
        editor.type("x")
        self.wait_text(editor, "x" + TEXT)
        editor.key("shift+F1")
        help_window = editor.wait_window(title="Deck Quick Help")
        self.assertFalse(help_window.minimised)


class Waiting(CompileTest):
    def wait_for_ever(self):
        self.control_compiler(NeverAnswer=1, Record="record.txt")

    def begin(self, editor):
        """Starts a compile that goes on until the compiler answers."""
        starts = len(self.recorded())
        editor.key("F9")
        self.wait_starts(starts + 1)

    def test_control_comes_back_from_a_compiler_that_never_answers(self):
        self.wait_for_ever()
        self.prefer("Unsupported", "RegainControlAfter", 1000)
        self.prefer("Unsupported", "CheckForCompletionTime", 300)
        editor = self.start_editor(self.file)
        editor.key("F9")
        self.wait_panel(editor, 1, WAITING)
        self.answer(editor, TOO_LONG, TOO_LONG_TEXT)
        self.wait_success(editor, 0)

    def test_the_editor_is_usable_during_the_wait(self):
        self.wait_for_ever()
        editor = self.start_editor(self.file)
        self.open(editor, "Carrier Strike.tmm")
        self.wait_selected(editor, "Carrier Strike.tmm")
        editor.click_tab("test.tmj")
        self.begin(editor)
        self.wait_panel(editor, 1, WAITING)
        editor.type("REM ")
        self.wait_text(editor, "REM " + TEXT)
        editor.key("ctrl+Tab")
        self.wait_selected(editor, "Carrier Strike.tmm")
        self.wait_panel(editor, 1, "Done")  # with the macros of the file
        self.let_compiler_answer()
        self.wait_success(editor, 7)
        self.assertEqual(["test.tmj", "Carrier Strike.tmm"], editor.tab_captions())

    def test_an_error_brings_back_the_tab_it_belongs_to(self):
        self.control_compiler(Status="ERROR", LineNumber=2, ErrorCode="Error 2001: x", Delay=3000,
                              Record="record.txt")
        editor = self.start_editor()
        self.open(editor, "Carrier Strike.tmm", "test.tmj")
        self.wait_selected(editor, "test.tmj")
        self.begin(editor)
        editor.key("ctrl+Tab", "ctrl+F4")
        # Not even its tab's number is the same now.
        self.wait_tabs(editor, "test.tmj")
        editor.key("ctrl+n")
        self.wait_selected(editor, "Untitled")
        self.answer(editor, UNSUCCESSFUL, "Compiler reported an error at line 2: Error 2001: x")
        self.wait_selected(editor, "test.tmj")
        self.wait_selection(editor, 9, 18)

    def test_a_document_closed_during_the_wait_is_reported_without_a_line(self):
        self.control_compiler(Status="ERROR", LineNumber=2, ErrorCode="Error 2001: x", Delay=3000,
                              Record="record.txt")
        other = self.write_file("other.tmj", TEXT.replace("\n", "\r\n"))
        editor = self.start_editor(other)
        self.open(editor, "test.tmj")
        self.wait_selected(editor, "test.tmj")
        self.begin(editor)
        editor.key("ctrl+F4")
        self.wait_tabs(editor, "other.tmj")
        self.answer(editor, UNSUCCESSFUL, "Compiler reported an error at line 2: Error 2001: x")
        editor.type("x")
        self.wait_text(editor, "x" + TEXT)

    def test_a_second_compile_takes_the_place_of_the_first(self):
        self.wait_for_ever()
        editor = self.start_editor(self.file)
        self.begin(editor)
        self.control_compiler(Record="record.txt")
        editor.key("F9")
        self.wait_success(editor)
        self.assertEqual(2, len(self.recorded()))
        # Nothing of the first one comes after it.
        editor.type("x")
        self.wait_text(editor, "x" + TEXT)
        self.wait_panel(editor, 1, SUCCESS.format(1))
        self.assertEqual([], editor.dialogs())

    def test_closing_the_editor_during_the_wait_ends_it(self):
        self.wait_for_ever()
        editor = self.start_editor(self.file)
        self.begin(editor)
        editor.close()
        self.assertEqual(0, editor.wait_end())
        self.assertEqual("2", self.own_ini("Miscellaneous", "EditorWindowstate"))


if __name__ == "__main__":
    unittest.main()
