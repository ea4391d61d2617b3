#!/usr/bin/env python3
"""Takes pictures of the editor's windows; run by scripts/tour.sh inside scripts/wine_env.sh.

    tour.py DIRECTORY DPI windows|dark|first-start
"""

import contextlib
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

# Found by the path above.
import harness  # pylint: disable=wrong-import-position
from harness import wait_for  # pylint: disable=wrong-import-position

APP = ROOT / "out" / "WrenDeck"
DESKTOP_KEY = r"HKCU\Control Panel\Desktop"
COLOURS_KEY = r"HKEY_CURRENT_USER\Control Panel\Colors"
THEME_KEY = r"HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\ThemeManager"
# What somebody chooses who wants no bright screen.
DARK = {
    "Window": "20 20 20", "WindowText": "230 230 230", "WindowFrame": "100 100 100",
    "ButtonFace": "45 45 45", "ButtonText": "230 230 230", "ButtonHilight": "80 80 80",
    "ButtonLight": "60 60 60", "ButtonShadow": "25 25 25", "ButtonDkShadow": "0 0 0",
    "ButtonAlternateFace": "50 50 50", "GrayText": "120 120 120", "Menu": "40 40 40",
    "MenuBar": "40 40 40", "MenuText": "230 230 230", "MenuHilight": "0 90 160",
    "Hilight": "0 90 160", "HilightText": "255 255 255", "InfoWindow": "60 60 40",
    "InfoText": "230 230 230", "Scrollbar": "60 60 60", "AppWorkSpace": "30 30 30",
}
MAIN_SIZE = 1000, 720  # of the main window, pixels at 100 %
TWIPS_PER_PIXEL = 15
# Long enough for a window to have painted itself and for a pointer to rest.
SETTLED = 0.7


def registry(*words):
    subprocess.run(["wine", "reg", *words], check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def begin_anew():
    """Some settings are read when the system's first window is made."""
    for word in ("-k", "-w", "-p"):
        subprocess.run(["wineserver", word], check=False)


def set_dpi(dpi):
    """For programs started from now on."""
    registry("add", DESKTOP_KEY, "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(dpi), "/f")
    begin_anew()


@contextlib.contextmanager
def dark_colours(folder):
    """For programs started while it lasts. Without a theme, which would bring its own colours."""
    kept = []
    for number, key in enumerate((COLOURS_KEY, THEME_KEY)):
        kept.append(harness.windows_path(folder / f"before-{number}.reg"))
        registry("export", key, kept[-1], "/y")
    lines = ["REGEDIT4", "", f"[{COLOURS_KEY}]",
             *[f'"{name}"="{colour}"' for name, colour in DARK.items()],
             "", f"[{THEME_KEY}]", '"ThemeActive"="0"', ""]
    (folder / "dark.reg").write_text("\r\n".join(lines), "ascii")
    try:
        registry("import", harness.windows_path(folder / "dark.reg"))
        begin_anew()
        yield
    finally:
        for file in kept:
            registry("import", file)
        for file in folder.glob("*.reg"):
            file.unlink()
        begin_anew()


class Tour:
    def __init__(self, folder, dpi, app):
        self.folder = folder
        self.scale = dpi / 96
        self.app = app
        self.editor = None

    def start(self, *names):
        files = [harness.windows_path(self.app / "Files" / name) for name in names]
        self.editor = harness.Program(self.app / "WrenDeck.exe", files, self.app,
                                      self.folder / "output.log")
        return self.editor.wait_main("Editor")

    def picture(self, name, *windows):
        """The part of the screen that the windows take; all of it without any."""
        time.sleep(SETTLED)
        path = self.folder / f"{name}.png"
        harness.screenshot(path)
        if windows:
            rects = [window.rect for window in windows]
            left, top = max(min(r[0] for r in rects), 0), max(min(r[1] for r in rects), 0)
            right, bottom = max(r[2] for r in rects), max(r[3] for r in rects)
            subprocess.run(["convert", str(path), "-crop",
                            f"{right - left}x{bottom - top}+{left}+{top}", "+repage", str(path)],
                           check=True)
        print(path.relative_to(ROOT))

    def wait_front(self, kind):
        """The window of that class, once keys go to it; its frame may still look inactive."""
        window = self.editor.wait_window(kind)
        wait_for(window.is_foreground, f"{kind} to be in front")
        return window

    def give_text_the_keys(self):
        """As a user would, who sees at once when the display gives the keyboard to nobody."""
        self.editor.edit_box().click()
        self.editor.wait_keyboard(self.editor.main)
        harness.move(*self.corner())

    def close(self, window, *keys):
        wait_for(window.is_foreground, f"\"{window.title}\" to be in front")
        harness.press_keys(*keys)
        window.wait_closed()

    # What there is to see.

    def place_main_window(self):
        lines = ["[Miscellaneous]", "EditorTopAtStartup=600", "EditorLeftAtStartup=600",
                 f"EditorWidthAtStartup={MAIN_SIZE[0] * TWIPS_PER_PIXEL}",
                 f"EditorHeightAtStartup={MAIN_SIZE[1] * TWIPS_PER_PIXEL}", "EditorWindowstate=0", ""]
        (self.app / "WrenDeck.ini").write_text("\r\n".join(lines), "ascii")

    def windows(self):
        self.place_main_window()
        self.start("airliner.tmj")
        wait_for(lambda: len(self.editor.tab_captions()) == 2, "the macro file's tab")
        self.editor.click_tab("airliner.tmj")
        harness.move(*self.corner())
        # The message panel says what is edited, and no more what a click on the tab would do.
        for _ in range(2):
            self.editor.key("ctrl+Tab")
        self.main_window()
        self.menus()
        self.find_dialog()
        self.quick_help()
        self.key_tester()
        self.compile()

    def corner(self):
        right, bottom = self.editor.main.rect[2:]
        return right + 20, bottom + 20

    def main_window(self):
        for number in range(2):
            self.picture("macros" if self.macros_shown() else "no-macros", self.editor.main)
            if number == 0:
                self.editor.key("ctrl+m")
        self.editor.key("ctrl+m")
        wait_for(self.macros_shown, "the macros")

    def macros_shown(self):
        return self.editor.menu_item("View", "View macros")["checked"]

    def menus(self):
        for number, entry in enumerate(self.editor.menu()):
            caption = entry["caption"].replace("&", "")
            harness.click(*harness.middle(entry["rect"]))
            self.editor.wait_window(harness.POPUP_MENU)
            self.picture(f"menu-{number + 1}-{caption.lower()}", self.editor.main)
            harness.press_keys("Escape", "Escape")
        self.editor.wait_keyboard(self.editor.main)
        self.editor.edit_box().right_click()
        self.picture("menu-of-the-text", self.editor.main)
        harness.press_keys("Escape")

    def find_dialog(self):
        for name, key in (("find", "ctrl+f"), ("replace", "ctrl+h"), ("goto", "ctrl+g")):
            self.editor.key(key)
            dialog = self.wait_front("FindAndReplace")
            self.picture(name, dialog)
            if key == "ctrl+g":
                self.picture("goto-in-front", self.editor.main)
            self.close(dialog, "Escape")
            self.give_text_the_keys()

    def quick_help(self):
        for name, item in (("syntax", 0), ("slash-modifiers", 1), ("error-codes", 2)):
            if item == 0:
                self.editor.key("shift+F1")
            else:
                self.choose("Help", item + 1)
            page = self.wait_front("InfoWindow")
            self.picture(f"quick-help-{name}", page)
            harness.press_keys("Next")
            self.picture(f"quick-help-{name}-below", page)
            self.close(page, "Escape")
            self.give_text_the_keys()

    def choose(self, menu, item):
        harness.click(*harness.middle(self.editor.menu_item(menu)["rect"]))
        harness.click(*harness.middle(self.editor.popup_menu()[item + 1]["rect"]))

    def key_tester(self):
        self.editor.key("F6")
        form = self.wait_front("KeyTestForm")
        harness.press_keys("a", "shift+b", "F7", "Return")
        self.picture("key-tester", form)
        self.close(form, "alt+F4")

    def compile(self):
        self.editor.key("F9")
        box = self.editor.wait_dialog("Compile results")
        self.picture("compiled", self.editor.main, box)
        box.press("OK")
        harness.move(*self.corner())
        self.picture("compiled-panel", self.editor.main)

    def first_start(self):
        self.start()
        self.picture("empty")
        self.editor.key("ctrl+o")
        dialog = self.editor.wait_dialog("Open")
        dialog.enter_file(harness.windows_path(self.app / "Files" / "airliner.tmj"))
        wait_for(lambda: len(self.editor.tab_captions()) == 2, "the macro file's tab")
        self.editor.click_tab("airliner.tmj")
        self.picture("files")


def main():
    lacking = harness.missing_environment()
    if lacking:
        sys.exit(f"tour: {lacking}")
    folder, dpi, what = (ROOT / sys.argv[1]).resolve(), int(sys.argv[2]), sys.argv[3]
    folder.mkdir(parents=True, exist_ok=True)
    set_dpi(dpi)
    colours = dark_colours(folder) if what == "dark" else contextlib.nullcontext()
    with tempfile.TemporaryDirectory(dir=ROOT / "build") as scratch, colours:
        app = Path(scratch) / "WrenDeck"
        shutil.copytree(APP, app)
        tour = Tour(folder, dpi, app)
        try:
            (tour.first_start if what == "first-start" else tour.windows)()
        except BaseException:
            harness.screenshot(folder / "failure.png")
            raise
        finally:
            if tour.editor is not None:
                tour.editor.end()
            set_dpi(96)


if __name__ == "__main__":
    main()
