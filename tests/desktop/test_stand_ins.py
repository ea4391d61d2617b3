"""The stand-ins for the outside programs: what they answer, and every way in which a control file
makes them misbehave."""

import time
import unittest

from harness import DesktopTest, ini_value, wait_for, windows_path

HUGE = 100000


class StandIns(DesktopTest):
    def setUp(self):
        super().setUp()
        self.ini = self.app_file("HOTAS.ini")
        self.ini.write_bytes(b"[Compiler]\r\nStatus=\r\n[Other]\r\nkept=yes\r\n")
        self.before = self.ini.read_bytes()
        self.file = self.app_file("Files") / "test.tmj"
        self.file.write_bytes(b"BTN T1 a\r\nBOGUS\r\n")
        self.good = self.app_file("Files") / "good.tmj"
        self.good.write_bytes(b"BTN T1 a\r\n")

    def control(self, program, **keys):
        lines = ["[Control]", *[f"{key}={value}" for key, value in keys.items()], ""]
        self.app_file(f"{program}.control.ini").write_bytes("\r\n".join(lines).encode("ascii"))

    def run_to_end(self, program, *arguments):
        """Its exit status."""
        return self.start(self.app_file(f"{program}.exe"), *arguments).wait_end()

    def value(self, key, section="Compiler"):
        return ini_value(self.ini, section, key)

    def run_compiler(self, switch="/CO", file=None, **control):
        if control:
            self.control("HOTASCompiler", **control)
        return self.run_to_end("HOTASCompiler", "/WREN", switch, windows_path(file or self.file))

    def run_panel(self, *arguments, **control):
        if control:
            self.control("HOTASConfig", **control)
        return self.run_to_end("HOTASConfig", "/MODE", "/WREN", *arguments)


class Compiler(StandIns):
    def test_reports_the_first_error_with_its_line(self):
        self.assertEqual(1, self.run_compiler())
        self.assertEqual("ERROR", self.value("Status"))
        self.assertEqual("2", self.value("LineNumber"))
        self.assertEqual("0", self.value("Memory"))
        self.assertEqual("Error 2001: unknown statement 'BOGUS'", self.value("ErrorCode"))
        self.assertEqual(windows_path(self.file), self.value("FileName"))
        self.assertEqual("", self.value("DownloadTime"))
        self.assertEqual("yes", self.value("kept", "Other"))

    def test_reports_a_success_with_the_memory_used_and_the_status_last(self):
        self.ini.unlink()
        self.assertEqual(0, self.run_compiler(file=self.good))
        self.assertEqual("1", self.value("Memory"))
        self.assertEqual("0", self.value("LineNumber"))
        lines = [line for line in self.ini.read_bytes().decode("cp1252").splitlines() if line]
        self.assertEqual("Status=OK", lines[-1])
        self.assertEqual(8, len(lines))

    def test_a_download_takes_its_time_and_may_enable_the_controllers(self):
        self.run_compiler("/CD", self.good)
        self.assertRegex(self.value("DownloadTime"), r"^\d+\.\d\d s$")
        self.assertIsNone(self.value("Buttons", "TMMODE"))
        self.run_compiler("/CE", self.good)
        self.assertEqual("1", self.value("Buttons", "TMMODE"))

    def test_refuses_switches_that_it_does_not_know(self):
        self.assertEqual(1, self.run_compiler("/CX"))
        self.assertEqual("Error 2010: unknown switches", self.value("ErrorCode"))

    def test_tells_by_its_exit_code_that_it_could_not_answer(self):
        self.ini.unlink()
        self.ini.mkdir()
        self.assertEqual(2, self.run_compiler())

    def test_can_die_at_once(self):
        self.assertEqual(3, self.run_compiler(DieAtOnce=1))
        self.assertEqual(self.before, self.ini.read_bytes())

    def test_can_keep_silent(self):
        self.assertEqual(0, self.run_compiler(file=self.good, NeverAnswer=1))
        self.assertEqual(self.before, self.ini.read_bytes())

    def test_can_be_slow(self):
        begin = time.monotonic()
        self.assertEqual(1, self.run_compiler(Delay=1500))
        self.assertGreaterEqual(time.monotonic() - begin, 1.5)
        self.assertEqual("ERROR", self.value("Status"))

    def test_can_report_anything_else_than_what_came_out(self):
        self.run_compiler(file=self.good, Status="ERROR", LineNumber=70000, ErrorCode="Error 1013: x",
                          Memory=-3)
        self.assertEqual(["ERROR", "70000", "Error 1013: x", "-3"],
                         [self.value(key) for key in ("Status", "LineNumber", "ErrorCode", "Memory")])
        self.run_compiler(Status="error")
        self.assertEqual("error", self.value("Status"))
        self.run_compiler(Status="")
        self.assertEqual("", self.value("Status"))
        self.assertEqual("2", self.value("LineNumber"))

    def test_can_report_huge_values(self):
        self.assertEqual(1, self.run_compiler(HugeValues=1))
        self.assertEqual(HUGE, len(self.value("ErrorCode")))
        self.assertEqual(HUGE, len(self.value("CompileTime")))
        self.assertEqual("ERROR", self.value("Status"))
        self.assertEqual("yes", self.value("kept", "Other"))

    def test_can_break_off_in_the_middle_of_its_answer(self):
        self.run_compiler(HalfWritten=1, HalfWrittenFor=-1)
        self.assertEqual(f"[Compiler]\r\nFileName={windows_path(self.file)}\r\nStat".encode(),
                         self.ini.read_bytes())

    def test_can_be_seen_half_way_through_its_answer(self):
        self.control("HOTASCompiler", HalfWritten=1, HalfWrittenFor=3000)
        compiler = self.start(self.app_file("HOTASCompiler.exe"), "/WREN", "/CO",
                              windows_path(self.file))
        wait_for(lambda: self.ini.read_bytes().endswith(b"\r\nStat"), "half an answer")
        self.assertEqual(1, compiler.wait_end())
        self.assertEqual("ERROR", self.value("Status"))
        self.assertEqual("yes", self.value("kept", "Other"))


class Recording(StandIns):
    def test_every_program_can_record_how_it_was_started(self):
        record = self.app_file("record.txt")
        self.run_compiler(Record="record.txt")
        self.run_panel("/BU", Record=windows_path(record))
        for name in ("Wren", "Starter"):
            self.control(name, Record="record.txt")
            self.start(self.app_file(f"{name}.exe")).wait_window(title=name)
        blocks = record.read_bytes().decode("utf-8").strip().split("\r\n\r\n")
        self.assertEqual(4, len(blocks))
        for block, end in zip(blocks, (f"/WREN /CO {windows_path(self.file)}", "/MODE /WREN /BU",
                                       "Wren.exe", "Starter.exe")):
            command_line, directory, show = block.split("\r\n")
            self.assertTrue(command_line.startswith("command line: "), command_line)
            self.assertTrue(command_line.rstrip(' "').endswith(end), command_line)
            self.assertEqual(f"directory: {windows_path(self.app)}", directory)
            self.assertRegex(show, r"^show: (-|\d+)$")


class ControlPanel(StandIns):
    def mode(self):
        return [self.value(key, "TMMODE") for key in ("Axes", "Buttons", "Status")]

    def test_answers_with_the_mode_that_it_was_asked_for(self):
        self.assertEqual(0, self.run_panel("/BU"))
        self.assertEqual(["0", "1", "OK"], self.mode())
        self.assertEqual(0, self.run_panel("/BW"))
        self.assertEqual(["0", "0", "OK"], self.mode())
        self.assertEqual(0, self.run_panel())
        self.assertEqual(["0", "0", "OK"], self.mode())

    def test_can_fail(self):
        self.assertEqual(1, self.run_panel("/BU", Fail=1))
        self.assertEqual([None, None, "ERROR"], self.mode())

    def test_can_keep_silent(self):
        self.assertEqual(0, self.run_panel("/BU", Silent=1))
        self.assertEqual(self.before, self.ini.read_bytes())

    def test_can_be_late(self):
        begin = time.monotonic()
        self.assertEqual(0, self.run_panel("/BU", Late=1500))
        self.assertGreaterEqual(time.monotonic() - begin, 1.5)
        self.assertEqual(["0", "1", "OK"], self.mode())


class Windows(StandIns):
    def test_the_host_programs_show_a_window_that_names_them(self):
        for name in ("Wren", "Starter"):
            program = self.start(self.app_file(f"{name}.exe"))
            window = program.wait_window(title=name)
            program.key("alt+F4")
            window.wait_closed()
            self.assertEqual(0, program.wait_end())

    def test_the_control_panel_shows_a_window_without_switches(self):
        self.start(self.app_file("HOTASConfig.exe")).wait_window(title="HOTAS control panel")


if __name__ == "__main__":
    unittest.main()
