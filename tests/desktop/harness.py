"""Drives Windows programs as a user does, with real keys and the mouse, and looks at what they show.

A test derives from DesktopTest, which gives it a fresh directory under build/desktop and ends
whatever it started:

    class Compiling(DesktopTest):
        def test_shows_the_size(self):
            editor = self.start_editor(self.app_file("Files/airliner.tmj"))
            editor.key("F9")
            box = editor.wait_dialog("Compile results")
            self.assertIn("was compiled successfully", box.text)
            box.press("OK")
            self.assertEqual(["airliner.tmj"], editor.tab_captions())

DesktopTest
    app                     fresh copy of out/WrenDeck, the program's directory (made when first used)
    app_file(name)          a path inside it
    start_editor(*files)    starts WrenDeck.exe there and waits for its window -> Program
    start(exe, *arguments)  starts any program -> Program
    screenshot(name)        the whole screen, as build/desktop/<test>/<name>.png

Program: one started program and its windows
    windows(), dialogs()                  its visible top-level windows, topmost first
    wait_window(kind=, title=), wait_dialog(title), wait_no_window(title)     -> Window
    wait_keyboard(window)                 until keys reach that window -> the same
    main                                  its main window
    key("ctrl+o", ...), type("text")      once one of its windows has the keyboard
    post(id)                              posts a menu command to the main window
    close(), wait_end() -> exit status, end()
    kill(), terminate()                   ends it on the spot, by a signal or by TerminateProcess
    For the editor's main window: panels(), panel(n from 1), tip(n), tab_captions(), selected_tab(),
    tab_rect(caption), click_tab(caption), edit(), menu(), menu_item("File", "Save"),
    toolbar_click(id)

Window: handle, kind (class), title, rect, pid; a snapshot, except for what is asked anew each time:
    children(kind=, id=, text=, visible=) -> [Child]      child(...) -> exactly one
    text                                  of a message box
    buttons()                             captions without "&"
    press(caption)                        clicks the button and waits until the window is gone
    click(caption)                        clicks the button only
    is_open(), wait_closed(), is_foreground()
    enter_file(path)                      file dialogs: types the name and presses Return

Child: a control
    .text .rect .visible .enabled .checked .handle .id .kind
    .click(), .double_click(), .right_click()
    .insert(text)                         in the place of an edit box's selection, without keys
    .edit() .items() .selected_items() .tabs() .combo() .toolbar() .status()    as the probe tells
    .item_point(index), .click_item(index), .double_click_item(index)           list box items
    .click_character(position)                                                  rich edit boxes

Functions: wait_for(condition, what, seconds), press_keys(*keys), type_text(text), click(x, y),
double_click, right_click, move, drag, screenshot(path), read_ini(path), windows_path(path),
ini_value(path, section, key), clipboard_text(), fill_clipboard(part, ...) with the parts that the
probe takes.

Positions are screen pixels. Every wait ends with the first look at which the condition holds and
raises AssertionError, naming what it waited for, when its time is up.
"""

import atexit
import codecs
import configparser
import functools
import json
import os
import select
import shutil
import signal
import subprocess
import time
import types
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
LAYOUT = Path(os.environ.get("DECK_LAYOUT", ROOT / "out" / "WrenDeck"))
PROGRAMS = Path(os.environ.get("DECK_PROGRAMS", ROOT / "build" / "windows" / "desktop"))
WORK = Path(os.environ.get("DECK_WORK", ROOT / "build" / "desktop"))

PATIENCE = 45.0  # seconds; a busy machine takes ten times as long as an idle one
LOOK_EVERY = 0.05
SETTLED_WITHIN = 3.0
ANSWER_WITHIN = 60.0
# Marks our own processes: what a program starts inherits its environment.
MARK = "DECK_DESKTOP_TEST"

DIALOG = "#32770"
POPUP_MENU = "#32768"
MESSAGE_TEXT_ID = 0xFFFF
WM_COMMAND = 0x0111


def missing_environment():
    """Why nothing can be driven here, or None."""
    if "DISPLAY" not in os.environ or "WINEPREFIX" not in os.environ:
        return "no display and Wine prefix of the build's own: run by scripts/wine_env.sh"
    for program in ("wine", "xdotool", "import"):
        if shutil.which(program) is None:
            return f"{program} is not installed"
    return None


def wait_for(condition, what, seconds=PATIENCE):
    """Looks until condition() gives something true, and returns that."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds:g} s in vain for {what}")
        time.sleep(LOOK_EVERY)


def windows_path(path):
    """How a Windows program names a file of this system."""
    return "Z:" + str(Path(path).absolute()).replace("/", "\\")


# Keys, mouse and screen.


def xdotool(*words):
    subprocess.run(["xdotool", *[str(word) for word in words]], check=True, timeout=ANSWER_WITHIN,
                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)


def press_keys(*keys):
    xdotool("key", "--clearmodifiers", "--delay", 12, *keys)


def type_text(text):
    """Types ASCII text, line breaks with the Return key.

    For other characters xdotool would change the keyboard's mapping while the program reads it, and
    some would get lost; they reach a program in files.
    """
    if not text.isascii():
        raise ValueError(f"no keys for all of {text!r}")
    for number, line in enumerate(text.split("\n")):
        if number > 0:
            press_keys("Return")
        if line:
            xdotool("type", "--clearmodifiers", "--delay", 12, "--", line)


def window_with_keys():
    """Process id and title of the window that the display sends keys to, or None.

    A new window is Windows' foreground window a moment before the window manager has given it the
    keyboard; what is typed in that moment is lost.
    """
    answer = subprocess.run(["xdotool", "getwindowfocus", "getwindowpid", "getwindowname"],
                            timeout=ANSWER_WITHIN, stdin=subprocess.DEVNULL, capture_output=True,
                            text=True, check=False)
    lines = answer.stdout.split("\n")
    return (int(lines[0]), lines[1]) if answer.returncode == 0 and lines[0].isdigit() else None


def title_with_keys():
    """Of the window that the display sends keys to; empty when it sends them to none."""
    return (window_with_keys() or ("", ""))[1]


def settle():
    """Waits until the display gives the keys to Windows' foreground window.

    A change of the keyboard that comes while a button is held down takes the click back, as if the
    pointer had left what was pressed. Where a program has passed the focus on from one of its
    windows to another the two disagree for good, so that is not waited for long.
    """
    end = time.monotonic() + SETTLED_WITHIN
    while time.monotonic() < end:
        foreground = probe().ask("focus")["foreground"]
        titles = [facts["title"] for facts in probe().ask("windows")
                  if facts["handle"] == foreground]
        if title_with_keys() in titles:
            return
        time.sleep(LOOK_EVERY)


def move(x, y):
    xdotool("mousemove", x, y)


def click(x, y, button=1, times=1):
    settle()
    xdotool("mousemove", x, y, "click", "--repeat", times, "--delay", 60, button)


def double_click(x, y):
    click(x, y, times=2)


def right_click(x, y):
    click(x, y, button=3)


def drag(start, end):
    """Presses the left button at start, moves to end in a few steps as a hand does, and lets go."""
    settle()
    words = ["mousemove", *start, "mousedown", 1]
    for step in range(1, 6):
        x = start[0] + (end[0] - start[0]) * step // 5
        y = start[1] + (end[1] - start[1]) * step // 5
        words += ["mousemove", x, y, "sleep", 0.05]
    xdotool(*words, "mouseup", 1)


def screenshot(path):
    Path(path).parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["import", "-window", "root", str(path)], check=True, timeout=ANSWER_WITHIN,
                   stdin=subprocess.DEVNULL)


def middle(rect):
    return (rect[0] + rect[2]) // 2, (rect[1] + rect[3]) // 2


# Files that a program wrote.


def read_ini(path):
    """An INI file as the system's profile functions read it: {section: {key: text}}, keys in lower
    case. Empty when there is no such file."""
    parser = configparser.ConfigParser(interpolation=None, strict=False, delimiters=("=",),
                                       comment_prefixes=(";",), allow_no_value=True,
                                       empty_lines_in_values=False, default_section="\0")
    try:
        data = Path(path).read_bytes()
    except FileNotFoundError:
        return {}
    encoding = "utf-8" if data.startswith(codecs.BOM_UTF8) else "cp1252"
    parser.read_string(data.decode(encoding, errors="replace").lstrip("\ufeff"))
    return {section: dict(parser[section]) for section in parser.sections()}


def ini_value(path, section, key, default=None):
    sections = {name.lower(): keys for name, keys in read_ini(path).items()}
    return sections.get(section.lower(), {}).get(key.lower(), default)


# What windows show.


class ProbeError(Exception):
    """The probe could not tell; mostly because the window had just gone."""


class Probe:
    """probe.exe, kept running for the whole test run."""

    def __init__(self):
        # pylint: disable-next=consider-using-with  # ends with the test run, in stop()
        self._process = subprocess.Popen(
            ["wine", str(PROGRAMS / "probe.exe")], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL)

    def ask(self, *words):
        self._process.stdin.write((" ".join(str(word) for word in words) + "\n").encode())
        self._process.stdin.flush()
        ready, _, _ = select.select([self._process.stdout], [], [], ANSWER_WITHIN)
        line = self._process.stdout.readline() if ready else b""
        if not line:
            probe.cache_clear()  # its answer may still come, and would be taken for that to the next
            self.stop()
            raise AssertionError(f"the probe did not answer {words}")
        answer = json.loads(line)
        if isinstance(answer, dict) and "error" in answer:
            raise ProbeError(f"{words}: {answer['error']}")
        return answer

    def stop(self):
        if self._process.stdout.closed:
            return
        self._process.stdin.close()
        try:
            self._process.wait(timeout=5)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._process.stdout.close()


@functools.lru_cache(maxsize=None)
def probe():
    made = Probe()
    atexit.register(made.stop)
    return made


def clipboard_text():
    """The text on the clipboard, or None when it holds none."""
    return probe().ask("clipboard").get("text")


def fill_clipboard(*parts):
    """Puts one thing on the clipboard, in as many forms as there are parts."""
    probe().ask("fill", *parts)


class Child:
    """One control of a window, as it was when it was looked up."""

    def __init__(self, facts):
        self.handle = facts["handle"]
        self.kind = facts["class"]
        self.id = facts["id"]
        self.text = facts["text"]
        self.visible = facts["visible"]
        self.enabled = facts["enabled"]
        self.checked = facts["checked"]
        self.rect = facts["rect"]

    def click(self):
        click(*middle(self.rect))

    def double_click(self):
        double_click(*middle(self.rect))

    def right_click(self):
        right_click(*middle(self.rect))

    def edit(self):
        return probe().ask("edit", self.handle)

    def insert(self, text):
        """Puts text without blanks in the place of the selection."""
        probe().ask("insert", self.handle, text)

    def items(self):
        return probe().ask("list", self.handle)["items"]

    def selected_items(self):
        return probe().ask("list", self.handle)["selected"]

    def combo(self):
        return probe().ask("combo", self.handle)

    def tabs(self):
        return probe().ask("tabs", self.handle)

    def toolbar(self):
        return probe().ask("toolbar", self.handle)

    def status(self):
        return probe().ask("status", self.handle)

    def item_point(self, index):
        """The middle of a list box item, which must be in view."""
        view = probe().ask("listview", self.handle)
        if not 0 <= index - view["top"] < len(view["rects"]):
            raise AssertionError(f"item {index} is not in view")
        return middle(view["rects"][index - view["top"]])

    def click_item(self, index):
        click(*self.item_point(index))

    def double_click_item(self, index):
        double_click(*self.item_point(index))

    def click_character(self, position, times=1):
        x, y = probe().ask("character", self.handle, position)
        click(x + 1, y + 4, times=times)


class Window:
    """A top-level window. Its facts are those of the moment, its controls are looked up anew."""

    def __init__(self, facts):
        self.handle = facts["handle"]
        self.kind = facts["class"]
        self.title = facts["title"]
        self.rect = facts["rect"]
        self.owner = facts["owner"]
        self.pid = facts["pid"]
        self.minimised = facts["minimised"]
        self.maximised = facts["maximised"]

    def children(self, kind=None, id=None, text=None, visible=True):
        """The controls that fit; visible=None takes hidden ones as well."""
        return [child for child in map(Child, probe().ask("children", self.handle))
                if (kind is None or child.kind.lower() == kind.lower())
                and (id is None or child.id == id)
                and (text is None or child.text.replace("&", "") == text)
                and (visible is None or child.visible == visible)]

    def child(self, **fits):
        found = self.children(**fits)
        if len(found) != 1:
            raise AssertionError(f"{len(found)} controls of \"{self.title}\" fit {fits}")
        return found[0]

    @property
    def text(self):
        """The text of a message box, with \\n for its line breaks."""
        return self.child(id=MESSAGE_TEXT_ID).text.replace("\r\n", "\n")

    def buttons(self):
        return [child.text.replace("&", "") for child in self.children(kind="Button")]

    def click(self, caption):
        self.child(kind="Button", text=caption).click()

    def press(self, caption):
        self.click(caption)
        self.wait_closed()

    def enter_file(self, path):
        """Types the name of a file into a file dialog, which has the focus there when it opens."""
        wait_for(lambda: self.is_foreground() and title_with_keys() == self.title,
                 f"\"{self.title}\" to have the keyboard")
        press_keys("ctrl+a")
        type_text(str(path))
        press_keys("Return")

    def is_open(self):
        return any(facts["handle"] == self.handle and facts["visible"]
                   for facts in probe().ask("windows"))

    def is_foreground(self):
        return probe().ask("focus")["foreground"] == self.handle

    def wait_closed(self):
        wait_for(lambda: not self.is_open(), f"the end of \"{self.title}\"")


class Program:
    """A program that a test started, with whatever that program starts itself."""

    def __init__(self, executable, arguments, directory, log):
        self.executable = Path(executable)
        self._mark = f"{log.parent}:{os.getpid()}:{time.monotonic_ns()}"
        self._main = None
        self._known = set()  # windows that have had the display's keyboard
        self._log = log
        with open(log, "ab") as output:
            # pylint: disable-next=consider-using-with  # ends in wait_end() or end()
            self._process = subprocess.Popen(
                ["wine", str(executable), *arguments], cwd=directory, stdin=subprocess.DEVNULL,
                stdout=output, stderr=output,
                env={**os.environ, MARK: self._mark, "WINEDEBUG": "-all,err+all"})

    # Windows.

    def windows(self):
        mine = windows_path(self.executable).lower()
        return [Window(facts) for facts in probe().ask("windows")
                if facts["visible"] and facts["program"].lower() == mine
                and not facts["class"].startswith(("tooltips_", "IME", "ComboLBox"))]

    def dialogs(self):
        return [window for window in self.windows() if window.kind == DIALOG]

    def wait_window(self, kind=None, title=None, seconds=PATIENCE):
        def look():
            if not self.is_running():
                raise AssertionError(
                    f"{self.executable.name} ended with {self._process.returncode}; it wrote: "
                    + repr(self._log.read_text(errors="replace")))
            return next((window for window in self.windows()
                         if (kind is None or window.kind == kind)
                         and (title is None or window.title == title)), None)
        return wait_for(look, f"a window of class {kind} titled {title}", seconds)

    def wait_dialog(self, title, seconds=PATIENCE):
        return self.wait_keyboard(self.wait_window(DIALOG, title, seconds))

    def wait_no_window(self, title):
        wait_for(lambda: all(window.title != title for window in self.windows()),
                 f"the end of the window \"{title}\"")

    def wait_main(self, kind, seconds=PATIENCE):
        return self.wait_keyboard(self.wait_main_shown(kind, seconds))

    def wait_main_shown(self, kind, seconds=PATIENCE):
        """For a program that is sent no keys."""
        self._main = self.wait_window(kind=kind, seconds=seconds)
        return self._main

    @property
    def main(self):
        """The main window, with the facts of now."""
        return next((window for window in self.windows() if window.handle == self._main.handle),
                    self._main)

    def wait_keyboard(self, window):
        """A window that takes the keyboard is on the display, where a click finds it."""
        wait_for(lambda: self._takes_keys(window), f"\"{window.title}\" to have the keyboard")
        return window

    # Keys go to the window with the focus, whosever it is.

    def _takes_keys(self, window):
        """Whether a key that is pressed now reaches that window.

        Among windows that have had the display's keyboard before, the program itself passes the
        focus on without telling the display: it gets the keys by any of them.
        """
        if not window.is_foreground():
            return False
        keyboard = window_with_keys()
        if keyboard == (self._process.pid, window.title):
            self._known.add(window.handle)
        return (keyboard is not None and keyboard[0] == self._process.pid
                and window.handle in self._known)

    def _has_keys(self):
        return any(self._takes_keys(window) for window in self.windows())

    def _wait_foreground(self):
        wait_for(self._has_keys, f"a window of {self.executable.name} to have the keyboard")

    def key(self, *keys):
        self._wait_foreground()
        press_keys(*keys)

    def type(self, text):
        self._wait_foreground()
        type_text(text)

    # The editor's main window.

    def panels(self):
        return [panel["text"] for panel in self.main.child(kind="msctls_statusbar32").status()]

    def panel(self, number):
        return self.panels()[number - 1]

    def tip(self, number):
        return self.main.child(kind="msctls_statusbar32").status()[number - 1]["tip"]

    def _tabs(self):
        return self.main.child(kind="SysTabControl32").tabs()

    def tab_captions(self):
        return [item["caption"] for item in self._tabs()["items"]]

    def selected_tab(self):
        tabs = self._tabs()
        return tabs["items"][tabs["selected"]]["caption"]

    def tab_rect(self, caption):
        return next(item["rect"] for item in self._tabs()["items"] if item["caption"] == caption)

    def click_tab(self, caption):
        click(*middle(self.tab_rect(caption)))
        wait_for(lambda: self.selected_tab() == caption, f"the tab {caption} to be selected")

    def edit_box(self):
        """The one edit box that is shown."""
        return self.main.child(kind="RICHEDIT50W")

    def edit(self):
        return self.edit_box().edit()

    def toolbar_click(self, id):
        buttons = self.main.child(kind="ToolbarWindow32").toolbar()
        click(*middle(next(button["rect"] for button in buttons if button["id"] == id)))

    def menu(self):
        return probe().ask("menu", self.main.handle)

    def menu_item(self, *captions):
        """The item under these captions, written without "&" and without the shortcut."""
        items = self.menu()
        found = None
        for caption in captions:
            found = next((item for item in items
                          if item["caption"].replace("&", "").split("\t")[0] == caption), None)
            if found is None:
                raise AssertionError(f"no menu item {captions}")
            items = found["items"]
        return found

    def popup_menu(self):
        """Items of the popup menu that is open now."""
        popup = self.wait_window(POPUP_MENU)
        return probe().ask("menu", popup.handle)

    # Its end.

    def is_running(self):
        return self._process.poll() is None

    def post(self, id):
        probe().ask("post", self._main.handle, WM_COMMAND, id, 0)

    @property
    def unix_pid(self):
        return self._process.pid

    def kill(self):
        self._process.kill()

    def terminate(self):
        try:
            probe().ask("terminate", self._main.pid)
        except ProbeError:
            pass  # it has ended by itself, which wait_end() will tell

    def close(self):
        """Closes the main window as Alt+F4 does."""
        self.key("alt+F4")

    def wait_end(self, seconds=PATIENCE):
        wait_for(lambda: not self.is_running(), f"the end of {self.executable.name}", seconds)
        return self._process.returncode

    def end(self):
        """Ends the program and all that it started, but not what Windows itself started for it."""
        for pid in self._marked_processes():
            try:
                os.kill(pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
        if self.is_running():
            self._process.kill()
        self._process.wait()

    def running(self):
        """Of its processes that have not ended the command lines and what each thread waits for."""
        lines = []
        for pid in self._marked_processes():
            try:
                command = Path(f"/proc/{pid}/cmdline").read_bytes().replace(b"\0", b" ").decode(
                    errors="replace").strip()
                waits = [task.joinpath("wchan").read_text() or "?"
                         for task in sorted(Path(f"/proc/{pid}/task").iterdir())]
                lines.append(f"{command} ({', '.join(waits)})")
            except OSError:
                pass  # it has ended since
        return lines

    def _marked_processes(self):
        mark = f"{MARK}={self._mark}".encode()
        for entry in Path("/proc").iterdir():
            if not entry.name.isdigit():
                continue
            try:
                environment = (entry / "environ").read_bytes().split(b"\0")
                command = (entry / "cmdline").read_bytes().lower()
            except OSError:
                continue
            if mark in environment and not command.startswith(b"c:\\windows\\"):
                yield int(entry.name)


class DesktopTest(unittest.TestCase):
    """A test with a fresh directory of its own; see the top of this file."""

    def __init__(self, methodName="runTest"):
        super().__init__(methodName)
        if hasattr(self, methodName):
            setattr(self, methodName, self._with_picture_of_failure(getattr(self, methodName)))

    def _with_picture_of_failure(self, test):
        @functools.wraps(test)
        def run(_):
            try:
                test()
            except unittest.SkipTest:
                raise
            except BaseException as problem:
                self.screenshot("failure")
                problem.add_note(f"in view: {self._windows_in_view()}")
                problem.add_note("running: " + ", ".join(
                    line for program in self._programs for line in program.running()))
                problem.add_note("wrote: " + repr("".join(
                    log.read_text(errors="replace") for log in self.directory.glob("*.log"))))
                raise
        return types.MethodType(run, self)  # a plain function could not be asked for by its name

    def _windows_in_view(self):
        """What the test's own programs show, the texts of the main windows' status bars included."""
        mine = windows_path(self.directory).lower()
        try:
            windows = [Window(facts) for facts in probe().ask("windows")
                       if facts["visible"] and facts["program"].lower().startswith(mine)]
            return [(window.kind, window.title,
                     [panel["text"] for panel in window.child(kind="msctls_statusbar32").status()]
                     if window.kind == "Editor" else [child.text for child in window.children()])
                    for window in windows]
        except (AssertionError, ProbeError, OSError) as problem:
            return f"not known, {problem}"

    def setUp(self):
        lacking = missing_environment()
        if lacking:
            self.skipTest(lacking)
        if not (PROGRAMS / "probe.exe").exists():
            self.fail(f"{PROGRAMS}/probe.exe is not built")
        self.directory = WORK / self.id()
        shutil.rmtree(self.directory, ignore_errors=True)
        self.directory.mkdir(parents=True)
        self._app = None
        self._programs = []

    @property
    def app(self):
        if self._app is None:
            if not (LAYOUT / "WrenDeck.exe").exists():
                self.fail(f"{LAYOUT} is not laid out")
            self._app = self.directory / "WrenDeck"
            shutil.copytree(LAYOUT, self._app)
        return self._app

    def app_file(self, name):
        return self.app / name

    def start(self, executable, *arguments, directory=None):
        program = Program(executable, arguments, directory or Path(executable).parent,
                          self.directory / "output.log")
        self.addCleanup(program.end)
        self._programs.append(program)
        return program

    def start_editor(self, *files):
        editor = self.start(self.app / "WrenDeck.exe", *[windows_path(file) for file in files])
        editor.wait_main("Editor")
        return editor

    def screenshot(self, name):
        screenshot(self.directory / f"{name}.png")
