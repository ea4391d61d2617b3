"""Downloading, the programs that a file names, and how each of them was started: as they recorded it
themselves."""

import shutil
import unittest

import harness
from editor_steps import EditorTest
from harness import ini_value, wait_for, windows_path

RESULTS = "Compile results"
UNSUCCESSFUL = "The download was unsuccessful"
UNABLE = "Unable to download file ..."
TOO_LONG = "Now this is taking rather a long time buddy, isn't it?!"
TOO_LONG_TEXT = (
    "I'm going to pass control back to you now, as I'm worried that there may be a problem with "
    "the download and the Compiler's communication with your Cougar - it's just taking too long "
    "for my liking. I could be wrong of course, but I'd prefer to play it safe, and I presume you "
    "do too.\n\nIf you know for certain that there isn't a problem with your Cougar or your files, "
    "then you can increase the amount of time I sit around waiting for the compiler to download "
    "your file. To do this, see the help topic 'Unsupported options.'")
WAITING = " Waiting for compiler to download your file. Please be patient ...."
TEXT = "BTN T1 a\nBTN T2 b\nBTN T3 c\n"
ENABLE, IGNORE = "Enable after download", "Ignore RUN_APP statements on download"
ROOT = "Z:\\"


class DownloadTest(EditorTest):
    def setUp(self):
        super().setUp()
        self.compile_quickly()
        self.file = self.write_file("test.tmj", TEXT.replace("\n", "\r\n"))
        self.control_compiler(Record="record.txt")

    def starts(self, name="record.txt"):
        """Command line, current directory and show-window style of each start that was recorded."""
        path = self.app_file(name)
        if not path.exists():
            return []
        blocks = path.read_text(encoding="utf-8").strip().split("\n\n")
        return [tuple(line.split(": ", 1)[1] for line in block.splitlines()) for block in blocks]

    def probes(self):
        """What RunAppProbe.exe wrote down, in any order: the programs run side by side."""
        return sorted(self.starts("RunAppProbe.log"))

    def program(self, name="RunAppProbe.exe"):
        return windows_path(self.app_file(name))

    def download(self, editor):
        editor.key("ctrl+F9")

    def success_text(self, memory=1, caption="test.tmj"):
        return (f"{caption} was compiled successfully.\n"
                f"Compiled file size: {memory}% of the Cougar memory.")

    def wait_success(self, editor):
        self.answer(editor, RESULTS, self.success_text())
        self.wait_panel(editor, 1, " Compiled successfully. (Memory used: 1%)")

    def download_line(self, switch, file=None):
        return (f'{self.program("HOTASCompiler.exe")} /WREN {switch} '
                f'"{windows_path(file or self.file)}"', windows_path(self.app), "1")

    def expect_probes(self, *expected):
        self.wait_equal(sorted(expected), self.probes, "the programs that were started")


class Refusing(DownloadTest):
    def expect_no_file(self, editor):
        self.download(editor)
        self.answer(editor, UNABLE,
                    "You need to save your joystick file first before I can download it to your "
                    "controllers.\nGoto the File menu and select Save or Save as to do this.")
        self.assertEqual([], self.starts())

    def test_an_untitled_document_has_to_be_saved_first(self):
        self.prefer("Miscellaneous", "AlwaysShowCompileDownload", 1)
        editor = self.start_editor()
        editor.type("BTN T1 a")
        self.expect_no_file(editor)

    def test_a_file_that_is_gone_is_told_before_a_missing_compiler(self):
        editor = self.start_editor(self.file)
        self.file.unlink()
        self.app_file("HOTASCompiler.exe").unlink()
        self.expect_no_file(editor)

    def test_a_missing_compiler_is_told_with_its_path(self):
        compiler = self.app_file("HOTASCompiler.exe")
        compiler.unlink()
        editor = self.start_editor(self.file)
        self.download(editor)
        self.answer(editor, UNABLE,
                    f"I can't find the Compiler, which should be located at: "
                    f"{windows_path(compiler)}\nMake sure you've setup your preferences correctly "
                    "in Wren to fix this.")


class Starting(DownloadTest):
    def test_the_tick_enable_after_download_decides_on_the_switch(self):
        editor = self.start_editor(self.file)
        self.assertTrue(editor.menu_item("Download", ENABLE)["checked"])
        self.download(editor)
        self.wait_success(editor)
        self.assertEqual([self.download_line("/CE")], self.starts())
        self.choose(editor, "Download", ENABLE)
        self.download(editor)
        self.wait_success(editor)
        self.assertEqual([self.download_line("/CE"), self.download_line("/CD")], self.starts())
        self.assertEqual(windows_path(self.file),
                         ini_value(self.app_file("HOTAS.ini"), "Compiler", "FileName"))

    def test_the_file_is_downloaded_as_saved_without_a_question(self):
        editor = self.start_editor(self.file)
        editor.type("nonsense ")
        self.wait_panel(editor, 3, "Modified")
        self.download(editor)
        self.wait_success(editor)
        self.assertEqual("Modified", editor.panel(3))
        self.assertEqual(TEXT.replace("\n", "\r\n").encode(), self.file.read_bytes())

    def go_to_main_window(self, editor):
        harness.click(*harness.middle(editor.main.child(kind="msctls_statusbar32").rect))
        wait_for(lambda: editor.main.is_foreground(), "the main window in front")

    def test_the_other_windows_stay_as_they_are(self):
        self.prefer("Key Tester", "ClearDelay", 65535)
        self.app_file("HOTAS.ini").write_bytes(b"[TMMODE]\r\nStatus=OK\r\nButtons=1\r\n")
        self.control_compiler(Record="record.txt", Delay=1500)
        editor = self.start_editor(self.file)
        editor.key("F6")
        tester = editor.wait_window("KeyTestForm", "Key Tester")
        wait_for(tester.is_foreground, "the key tester in front")
        self.go_to_main_window(editor)
        editor.key("ctrl+f")
        find = editor.wait_window("FindAndReplace")
        wait_for(find.is_foreground, "the find dialog in front")
        self.go_to_main_window(editor)
        self.download(editor)
        self.wait_panel(editor, 1, WAITING)
        self.assertTrue(tester.is_open())
        self.wait_success(editor)
        self.assertTrue(tester.is_open())
        self.assertFalse(next(window.minimised for window in editor.windows()
                              if window.handle == find.handle))


class Reporting(DownloadTest):
    def test_an_error_is_reported_and_its_line_selected(self):
        self.write_file("test.tmj", f"BTN T1 a\r\nuse wren run_app {self.program()}\r\n")
        editor = self.start_editor(self.file)
        self.control_compiler(Status="ERROR", LineNumber=2, ErrorCode="Error 2001: unknown")
        self.download(editor)
        text = "Compiler reported an error at line 2: Error 2001: unknown"
        self.answer(editor, UNSUCCESSFUL, text)
        self.wait_panel(editor, 1, f" {text}")
        self.wait_selection(editor, 9, 9 + len(f"use wren run_app {self.program()}\n"))
        self.control_compiler(Status="ERROR", LineNumber=0, ErrorCode="Error 2008: too large")
        self.download(editor)
        text = "Compiler reported the following error: Error 2008: too large"
        self.answer(editor, UNSUCCESSFUL, text)
        self.wait_panel(editor, 1, f" {text}")
        self.assertEqual([], self.probes())

    def test_control_comes_back_from_a_compiler_that_never_answers(self):
        self.prefer("Unsupported", "RegainControlAfter", 1000)
        self.control_compiler(NeverAnswer=1)
        editor = self.start_editor(self.file)
        self.download(editor)
        self.wait_panel(editor, 1, WAITING)
        self.answer(editor, TOO_LONG, TOO_LONG_TEXT)
        self.answer(editor, RESULTS, self.success_text(0))

    def test_after_a_tab_switch_the_downloaded_document_is_reported_and_scanned(self):
        self.write_file("test.tmj", f"use wren run_app {self.program()} first\r\n")
        self.write_file("other.tmj", f"use wren run_app {self.program()} second\r\n")
        self.control_compiler(Record="record.txt", Delay=2500)
        editor = self.start_editor()
        self.open(editor, "other.tmj", "test.tmj")
        self.wait_selected(editor, "test.tmj")
        self.download(editor)
        wait_for(self.starts, "the compiler to start")
        editor.key("ctrl+Tab")
        self.wait_selected(editor, "other.tmj")
        self.answer(editor, RESULTS, self.success_text())
        self.expect_probes((f"{self.program()} first", ROOT, "6"))
        self.assertEqual("other.tmj", editor.selected_tab())


class RunningApps(DownloadTest):
    def setUp(self):
        super().setUp()
        self.write_file("test.tmj", f"use wren run_app {self.program()} saved\r\n")

    def start_with_programs(self):
        return self.start_editor(self.file)

    def saved_program(self):
        return (f"{self.program()} saved", ROOT, "6")

    def test_each_program_gets_its_arguments_its_window_and_the_root_of_its_drive(self):
        styles = {"": "6", "window_style 0": "0", "window_style 1": "1", "window_style 2": "2",
                  "WINDOW_STYLE 3": "3", "window_style 4": "4", "window_style 5": "6",
                  "window_style 12": "2"}
        lines = [f'USE wren\tRun_App  {self.program()} /n{number} "b c" {style}'
                 for number, style in enumerate(styles)]
        self.write_file("test.tmj", "\r\n".join(lines) + "\r\n")
        self.control_compiler(Memory=1)
        editor = self.start_editor(self.file)
        self.download(editor)
        self.wait_success(editor)
        self.expect_probes(*((f'{self.program()} /n{number} "b c"', ROOT, show)
                             for number, show in enumerate(styles.values())))

    def test_a_program_in_a_directory_with_a_blank_is_found(self):
        folder = self.directory / "My Tools"
        folder.mkdir()
        shutil.copy(self.app_file("RunAppProbe.exe"), folder)
        program = windows_path(folder / "RunAppProbe.exe")
        self.write_file("test.tmj", f"use wren run_app {program} /a rem the tracker\r\n")
        editor = self.start_editor(self.file)
        self.download(editor)
        self.wait_success(editor)
        log = folder / "RunAppProbe.log"
        wait_for(log.exists, "the record of the program")
        # Wine puts the quotes round a program path with blanks before the program sees its line.
        self.wait_equal([f'command line: "{program}" /a', f"directory: {ROOT}", "show: 6"],
                        lambda: log.read_text(encoding="utf-8").split("\n")[:3], "the record")

    def test_programs_start_after_the_box_is_answered(self):
        editor = self.start_with_programs()
        self.download(editor)
        box = self.wait_box(editor, RESULTS, self.success_text())
        self.assertEqual([], self.probes())
        self.assertFalse(self.app_file("Temp/Original.txt").exists())
        box.press("OK")
        self.expect_probes(self.saved_program())

    def test_the_edited_text_is_scanned_and_its_copy_stays(self):
        editor = self.start_with_programs()
        editor.key("ctrl+End")
        editor.type(f"use wren run_app {self.program()} edited window_style 1")
        self.wait_panel(editor, 3, "Modified")
        self.app_file("Temp/Original.txt").write_bytes(b"use wren run_app Z:\\old.exe and more")
        self.download(editor)
        self.wait_success(editor)
        self.expect_probes(self.saved_program(), (f"{self.program()} edited", ROOT, "1"))
        self.assertEqual(f"use wren run_app {self.program()} saved\r\n"
                         f"use wren run_app {self.program()} edited window_style 1".encode(),
                         self.app_file("Temp/Original.txt").read_bytes())
        self.assertEqual("Modified", editor.panel(3))
        self.assertEqual("test.tmj", editor.selected_tab())
        self.assertEqual(f"use wren run_app {self.program()} saved\r\n".encode(),
                         self.file.read_bytes())

    def test_a_program_that_does_not_start_is_passed_over(self):
        self.write_file("test.tmj", "use wren run_app Z:\\nowhere\\missing.exe\r\n"
                                    "use wren run_app Q:\\missing drive.exe\r\n"
                                    f"use wren run_app {self.program()} saved\r\n")
        editor = self.start_with_programs()
        self.download(editor)
        self.wait_success(editor)
        self.expect_probes(self.saved_program())
        self.assertEqual([], editor.dialogs())

    def expect_none_now_but_later(self, editor):
        """After the tick is changed back the same download starts the program, once."""
        self.choose(editor, "Download", IGNORE)
        self.download(editor)
        self.wait_success(editor)
        self.expect_probes(self.saved_program())

    def test_the_tick_ignore_run_app_starts_nothing(self):
        editor = self.start_with_programs()
        self.choose(editor, "Download", IGNORE)
        self.assertTrue(editor.menu_item("Download", IGNORE)["checked"])
        self.download(editor)
        self.wait_success(editor)
        self.assertFalse(self.app_file("Temp/Original.txt").exists())
        self.expect_none_now_but_later(editor)

    def test_the_tick_ignore_run_app_is_kept_until_the_next_start(self):
        editor = self.start_with_programs()
        self.choose(editor, "Download", IGNORE)
        self.quit(editor)
        self.assertEqual("1", self.own_ini("Miscellaneous", "RunAppsWithDownload"))
        editor = self.start_with_programs()
        self.assertTrue(editor.menu_item("Download", IGNORE)["checked"])
        self.expect_none_now_but_later(editor)
        self.quit(editor)
        self.assertEqual("0", self.own_ini("Miscellaneous", "RunAppsWithDownload"))

    def test_results_kept_to_the_status_bar_start_nothing(self):
        self.prefer("FileLocations", "HOTASStatusBarErrors", 1)
        editor = self.start_with_programs()
        self.download(editor)
        self.wait_panel(editor, 1, " Compiled successfully. (Memory used: 1%)")
        self.assertEqual([], editor.dialogs())
        # Opening a file is behind the download: whatever that had started would be there by now.
        self.open(editor, "airliner.tmj")
        self.wait_selected(editor, "airliner.tmj")
        self.assertEqual([], self.probes())
        self.assertFalse(self.app_file("Temp/Original.txt").exists())

    def test_without_the_directory_for_the_copy_the_text_is_scanned_all_the_same(self):
        shutil.rmtree(self.app_file("Temp"))
        editor = self.start_with_programs()
        self.download(editor)
        self.wait_success(editor)
        self.expect_probes(self.saved_program())
        self.assertFalse(self.app_file("Temp").exists())

    def test_a_copy_that_cannot_be_written_starts_nothing(self):
        blocked = self.app_file("Temp/Original.txt")
        blocked.mkdir()
        editor = self.start_with_programs()
        self.download(editor)
        self.wait_success(editor)
        # The next download, with the way free again, is the first that starts the program.
        blocked.rmdir()
        self.download(editor)
        self.wait_success(editor)
        self.expect_probes(self.saved_program())


if __name__ == "__main__":
    unittest.main()
