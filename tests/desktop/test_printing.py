"""Printing, down to the text on the pages: with a print queue that makes PDF files, and with none."""

import datetime
import os
import unittest
from pathlib import Path

import harness
from cups_printer import PdfPrinter, missing_printing, page_size, pages_of
from editor_steps import EditorTest
from harness import wait_for


class PrintingTest(EditorTest):
    def use_server(self, socket):
        """Lets programs that are started from now on look for printers there."""
        before = os.environ.get("CUPS_SERVER")
        os.environ["CUPS_SERVER"] = socket

        def restore():
            if before is None:
                del os.environ["CUPS_SERVER"]
            else:
                os.environ["CUPS_SERVER"] = before
        self.addCleanup(restore)


class WithAPrinter(PrintingTest):
    def setUp(self):
        lacking = missing_printing()
        if lacking:
            self.skipTest(lacking)
        super().setUp()
        self.printer = PdfPrinter()
        self.addCleanup(self.printer.stop)
        self.use_server(self.printer.socket)

    def name(self, word):
        """A file name that nobody else prints under."""
        return f"{word}{os.getpid()}.tmj"

    def print_file(self, editor, name):
        editor.key("ctrl+p")
        self.wait_panel(editor, 1, f"Finished printing {name}")
        self.assertEqual([], editor.dialogs())
        return self.printer.take_printed(Path(name).stem, self.directory / f"{name}.pdf")

    def test_a_text_stands_whole_on_numbered_pages_under_its_name_and_the_date(self):
        name = self.name("proof")
        numbered = [f"rem line {number:03}" for number in range(1, 151)]
        # What one cannot mistake for something else, wherever it is broken.
        long = "".join(chr(ord("!") + position * 7 % 90) for position in range(200))
        tabbed = "btn\ts2\t/I a\t\tx"
        written = [*numbered[:3], "", tabbed, long, "", *numbered[3:]]
        self.write_file(name, "\r\n".join(written) + "\r\n")
        editor = self.start_editor(self.sample(name))
        self.wait_selected(editor, name)

        pages = pages_of(self.print_file(editor, name))

        printed = []
        for number, page in enumerate(pages, start=1):
            self.assertEqual([f"Page {number} of {len(pages)}"], page[-1:])
            self.assertEqual("", page[-2])
            printed += page[:-1] if number == len(pages) else page[:-2]
        self.assertEqual(3, len(pages))
        self.assertEqual([name, self.printed_date(printed[1])], printed[:2])
        self.assertEqual([*numbered[:3], "", "btn     s2      /I a            x"], printed[2:7])
        columns = len(printed[7])
        self.assertTrue(70 <= columns <= 90, columns)
        broken = [long[start:start + columns] for start in range(0, len(long), columns)]
        rest = [*broken, "", *numbered[3:]]
        self.assertEqual(rest, printed[7:7 + len(rest)])
        self.assertFalse(any(printed[7 + len(rest):]), "nothing else is printed")

    def printed_date(self, line):
        """The line that is expected for the date in it: today, or yesterday at midnight."""
        today = datetime.date.today()
        short = [f"Date printed: {day.month}/{day.day}/{day.year}"
                 for day in (today, today - datetime.timedelta(days=1))]
        return line if line in short else short[0]

    def test_orientation_chosen_in_the_setup_dialog_holds_for_later_prints(self):
        name = self.name("wide")
        self.write_file(name, "rem one\r\n" + "x" * 100 + "\r\n")
        editor = self.start_editor(self.sample(name))
        self.wait_selected(editor, name)
        self.choose(editor, "File", "Printer Setup...")
        dialog = wait_for(lambda: next(iter(editor.dialogs()), None), "the setup dialog")
        dialog.child(kind="Button", text="Landscape").click()
        dialog.press("OK")
        for _ in range(2):
            printed = self.print_file(editor, name)
            width, height = page_size(printed)
            self.assertGreater(width, height)
            self.assertIn("x" * 100, pages_of(printed)[0])

    def test_a_cancelled_setup_dialog_changes_nothing(self):
        name = self.name("tall")
        self.write_file(name, "rem one\r\n")
        editor = self.start_editor(self.sample(name))
        self.wait_selected(editor, name)
        self.choose(editor, "File", "Printer Setup...")
        dialog = wait_for(lambda: next(iter(editor.dialogs()), None), "the setup dialog")
        dialog.child(kind="Button", text="Landscape").click()
        dialog.press("Cancel")
        width, height = page_size(self.print_file(editor, name))
        self.assertGreater(height, width)


    def test_a_queue_that_takes_no_jobs_is_not_said_to_have_printed(self):
        name = self.name("refused")
        self.write_file(name, "rem one\r\n")
        editor = self.start_editor(self.sample(name))
        self.wait_selected(editor, name)
        self.printer.refuse_jobs()
        editor.key("ctrl+p")
        wait_for(lambda: editor.panel(1).startswith(f"{name} could not be printed: "),
                 "the reason in panel 1")
        self.assertEqual([], editor.dialogs())
        editor.type("x")
        self.wait_text(editor, "xrem one\n")

    def test_the_systems_printer_does_as_its_stand_in(self):
        name = self.name("contract").removesuffix(".tmj")
        os.environ["DECK_JOB_NAME"] = name
        self.addCleanup(os.environ.pop, "DECK_JOB_NAME")
        contract = self.start(harness.PROGRAMS / "printer_contract_real_test.exe",
                              "--gtest_filter=PrinterInstalled.*")
        self.assertEqual(0, contract.wait_end(), (self.directory / "output.log").read_text("utf-8"))
        # What was dropped is not printed.
        printed = self.printer.take_all_printed(name, 3, self.directory)
        self.assertEqual([1, 1, 2], sorted(len(pages_of(file)) for file in printed))


class WithoutAPrinter(PrintingTest):
    def setUp(self):
        if Path("/etc/printcap").exists():
            self.skipTest("/etc/printcap names printers that cannot be taken away")
        super().setUp()
        self.use_server(str(self.directory / "nobody"))

    def refuse(self, editor, caption):
        self.answer(editor, "No printer detected",
                    "Sorry - I couldn't detect a printer connected to your system, so I can't "
                    f"print out {caption}. If you do have a printer connected, check your driver's "
                    "settings from the Control panel.")

    def test_print_says_so_and_leaves_the_message_panel(self):
        editor = self.start_editor()
        before = editor.panel(1)
        editor.key("ctrl+p")
        self.refuse(editor, "Untitled")
        self.assertEqual(before, editor.panel(1))

    def test_the_toolbars_button_prints_too(self):
        editor = self.start_editor(self.sample("airliner.tmj"))
        self.wait_tabs(editor, "airliner.tmj", "airliner.tmm")
        editor.toolbar_click(107)
        self.refuse(editor, editor.selected_tab())

    def test_printer_setup_leaves_the_editor_usable(self):
        editor = self.start_editor()
        self.choose(editor, "File", "Printer Setup...")
        # The system's own box says that there is none.
        wait_for(lambda: next(iter(editor.dialogs()), None), "the system's box").press("OK")
        self.assertEqual([], editor.dialogs())
        editor.type("still here")
        self.wait_text(editor, "still here")


if __name__ == "__main__":
    unittest.main()
