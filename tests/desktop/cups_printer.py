"""A print queue of a test's own that makes PDF files, and the text that stands on their pages.

The queue lives in a print server of its own, behind a socket of its own: whatever prints on this
machine otherwise is neither used nor disturbed. Programs find it by their environment.
"""

import os
import pwd
import shutil
import socket
import subprocess
import tempfile
import unicodedata
from pathlib import Path

from harness import ANSWER_WITHIN, wait_for

MODEL = "lsb/usr/cups-pdf/CUPS-PDF_opt.ppd"
MODEL_FILE = Path("/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd")
BACKEND = Path("/usr/lib/cups/backend/cups-pdf")
PROGRAMS = ("cupsd", "lpadmin", "gs", "pdftotext", "pdfinfo")
# The width of a character of the font that the editor prints in, in points.
PITCH = 6

SERVER = """\
Listen {folder}/socket
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
"""
PLACES = """\
ServerRoot {folder}
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
CacheDir {folder}/cache
StateDir {folder}/state
AccessLog {folder}/access.log
ErrorLog {folder}/error.log
PageLog {folder}/page.log
"""


def missing_printing():
    """Why no print queue can be made here, or None."""
    if os.geteuid() != 0:
        return "a print server of its own needs root"
    for program in PROGRAMS:
        if shutil.which(program) is None:
            return f"{program} is not installed"
    if not BACKEND.exists() or not MODEL_FILE.exists():
        return "the printer driver that makes PDF files is not installed"
    return None


class PdfPrinter:
    """The server with its one queue, which is the default one. Ends with stop()."""

    def __init__(self):
        # Short, since the path of a socket has to be; readable for the server's own user.
        self.folder = Path(tempfile.mkdtemp(prefix="deck-print-"))
        self.folder.chmod(0o755)
        for name in ("spool/tmp", "cache", "state", "ppd"):
            (self.folder / name).mkdir(parents=True)
            (self.folder / name).chmod(0o777)
        (self.folder / "cupsd.conf").write_text(SERVER.format(folder=self.folder), "ascii")
        (self.folder / "cups-files.conf").write_text(PLACES.format(folder=self.folder), "ascii")
        # The driver has one place for what it makes: below the home of who prints.
        self.output = Path(pwd.getpwuid(os.geteuid()).pw_dir) / "PDF"
        self._made_output = not self.output.exists()
        self.socket = str(self.folder / "socket")
        # pylint: disable-next=consider-using-with  # ends in stop()
        self._server = subprocess.Popen(
            ["cupsd", "-f", "-c", self.folder / "cupsd.conf", "-s", self.folder / "cups-files.conf"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            wait_for(self._answers, "the print server")
            self._run("lpadmin", "-p", "PDF", "-v", "cups-pdf:/", "-E", "-m", MODEL)
            self._run("lpadmin", "-d", "PDF")
        except BaseException:
            self.stop()
            raise

    def _answers(self):
        with socket.socket(socket.AF_UNIX) as connection:
            return connection.connect_ex(self.socket) == 0

    def _run(self, *words):
        subprocess.run(words, check=True, timeout=ANSWER_WITHIN, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       env={**os.environ, "CUPS_SERVER": self.socket})

    def _jobs(self):
        """Waiting or being printed."""
        return subprocess.run(["lpstat", "-o"], capture_output=True, text=True, check=False,
                              env={**os.environ, "CUPS_SERVER": self.socket}).stdout

    def take_printed(self, word, destination):
        """Waits for the file whose name contains the word and moves it away."""
        wait_for(lambda: list(self.output.glob(f"*{word}*.pdf")) and not self._jobs(),
                 f"a printed {word}")
        found = list(self.output.glob(f"*{word}*.pdf"))
        if len(found) != 1:
            raise AssertionError(f"printed more than once: {found}")
        return Path(shutil.move(found[0], destination))

    def refuse_jobs(self):
        """From now on the queue is there but takes nothing."""
        self._run("cupsreject", "PDF")

    def take_all_printed(self, word, count, folder):
        """Waits for so many files whose names contain the word and moves them into the folder."""
        wait_for(lambda: len(list(self.output.glob(f"*{word}*.pdf"))) >= count and not self._jobs(),
                 f"{count} times a printed {word}")
        return [Path(shutil.move(file, folder)) for file in self.output.glob(f"*{word}*.pdf")]

    def stop(self):
        self._server.terminate()
        self._server.wait()
        shutil.rmtree(self.folder, ignore_errors=True)
        if self._made_output and self.output.exists() and not any(self.output.iterdir()):
            self.output.rmdir()


def pages_of(pdf):
    """The lines of each page, blanks at the left margin and empty lines at the end removed."""
    text = subprocess.run(["pdftotext", "-fixed", str(PITCH), "-enc", "UTF-8", str(pdf), "-"],
                          capture_output=True, check=True, timeout=ANSWER_WITHIN).stdout.decode()
    pages = []
    # One shape may stand for several characters: hyphen and soft hyphen, semicolon and the Greek
    # question mark.
    text = unicodedata.normalize("NFKC", text).replace("\u00ad", "-")
    for page in text.split("\f")[:-1]:
        lines = page.rstrip("\n").split("\n")
        margin = min(len(line) - len(line.lstrip(" ")) for line in lines if line.strip())
        pages.append([line[margin:].rstrip() for line in lines])
    return pages


def page_size(pdf):
    """Width and height in points, as the page is read."""
    facts = subprocess.run(["pdfinfo", str(pdf)], capture_output=True, text=True, check=True,
                           timeout=ANSWER_WITHIN).stdout
    told = dict(line.split(":", 1) for line in facts.splitlines() if ":" in line)
    width, _, height = told["Page size"].split()[:3]
    size = float(width), float(height)
    return size if int(told["Page rot"]) % 180 == 0 else size[::-1]
