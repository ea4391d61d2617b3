"""Steps that the editor's desktop tests share: its dialogs, its texts, the files around it."""

import harness
from harness import DesktopTest, probe, wait_for, windows_path

# Over no control, so that no hint about what is under the pointer hides a message.
PARKED = (1279, 0)


class EditorTest(DesktopTest):
    """A test of WrenDeck.exe in a fresh directory, see DesktopTest."""

    def setUp(self):
        super().setUp()
        park()

    # Files beside the program.

    def sample(self, name):
        return self.app_file("Files") / name

    def write_file(self, name, data):
        """Makes a file in the program's folder for joystick files."""
        path = self.sample(name)
        path.write_bytes(data if isinstance(data, bytes) else data.encode("ascii"))
        return path

    def prefer(self, section, key, value):
        """Sets a preference of the host, which the editor reads when it starts."""
        set_ini_value(self.app_file("Wren.ini"), section, key, value)

    def compile_quickly(self):
        """Lets the editor look for the compiler's answer ten times a second."""
        self.prefer("Unsupported", "CheckForCompletionTime", 100)

    def control_compiler(self, **keys):
        """Makes the stand-in for the compiler misbehave; without keys it behaves again."""
        lines = ["[Control]", *[f"{key}={value}" for key, value in keys.items()], ""]
        self.app_file("HOTASCompiler.control.ini").write_bytes("\r\n".join(lines).encode("ascii"))

    def let_compiler_answer(self):
        """Success, from a stand-in with NeverAnswer: as a compiler does that was only slow."""
        path = self.app_file("HOTAS.ini")
        text = path.read_text(encoding="cp1252")
        path.write_text(text.replace("Status=", "Status=OK").replace("Memory=0", "Memory=7"),
                        encoding="cp1252")

    def own_ini(self, section, key):
        return harness.ini_value(self.app_file("WrenDeck.ini"), section, key)

    def recent_files(self, editor):
        """The paths that the File menu shows, of the commands from 2001 on."""
        items = editor.menu_item("File")["items"]
        return [plain(item["caption"]) for item in items if item["id"] > 2000]

    def wait_own_ini(self, section, key, expected):
        """The recent files are written in the background."""
        self.wait_equal(expected, lambda: self.own_ini(section, key), f"the setting {key}")

    # What the editor shows.

    def wait_equal(self, expected, look, what, seconds=harness.PATIENCE):
        """Looks until look() gives what is expected, and fails as assertEqual does."""
        seen = [None]

        def matches():
            try:
                seen[0] = look()
            except (harness.ProbeError, StopIteration, AssertionError):
                return False  # it changes just now, and a control is not seen for a moment
            return seen[0] == expected

        try:
            wait_for(matches, what, seconds)
        except AssertionError as problem:
            self.assertEqual(expected, seen[0], problem)
            raise

    def wait_panel(self, editor, number, text):
        self.wait_equal(text, lambda: editor.panel(number), f"panel {number}")

    def wait_tabs(self, editor, *captions):
        self.wait_equal(list(captions), editor.tab_captions, "the tabs")

    def wait_selected(self, editor, caption):
        self.wait_equal(caption, editor.selected_tab, "the selected tab")

    def wait_text(self, editor, text):
        self.wait_equal(text, lambda: editor.edit()["text"], "the text")

    def wait_selection(self, editor, start, end):
        self.wait_equal([start, end], lambda: editor.edit()["selection"], "the selection")

    def wait_box(self, editor, title, text, buttons=("OK",)):
        """Waits for a message box and checks all that it says."""
        box = editor.wait_dialog(title)
        self.assertEqual(text, box.text)
        self.assertEqual(list(buttons), box.buttons())
        return box

    def answer(self, editor, title, text, button="OK", buttons=("OK",)):
        self.wait_box(editor, title, text, buttons).press(button)
        park()

    def wait_tool_tip(self, editor, point, text):
        """Points somewhere and waits for the tip that comes up there."""
        # A tip comes up for a pointer that moves about in its place.
        x, y = point
        harness.xdotool("mousemove", x - 4, y, "sleep", 0.1, "mousemove", x, y)

        def tips():
            return [probe().ask("text", window["handle"]) for window in probe().ask("windows")
                    if window["visible"] and window["class"] == "tooltips_class32"
                    and window["program"].lower() == windows_path(editor.executable).lower()]
        self.wait_equal([text], tips, "the tool tip")
        park()

    def panel_point(self, editor, number):
        bar = editor.main.child(kind="msctls_statusbar32")
        left, top, _, bottom = bar.status()[number - 1]["rect"]
        return left + 8, (top + bottom) // 2

    # Commands.

    def open(self, editor, *names):
        """Chooses files in the dialog of File > Open, by what is typed into it."""
        editor.key("ctrl+o")
        dialog = editor.wait_dialog("Open")
        enter(dialog, *names)
        dialog.wait_closed()  # a key that comes while it closes would be lost

    def choose(self, editor, menu, item):
        """Chooses a menu command with the mouse."""
        harness.click(*harness.middle(editor.menu_item(menu)["rect"]))
        found = wait_for(lambda: next((entry for entry in editor.popup_menu()
                                       if plain(entry["caption"]) == item), None),
                         f"the item {item} of the menu {menu}")
        harness.click(*harness.middle(found["rect"]))
        park()

    def save_as(self, editor, name):
        editor.key("F12")
        enter(editor.wait_dialog("Save As"), name)

    def cancel(self, editor, title):
        dialog = editor.wait_dialog(title)
        editor.key("Escape")
        dialog.wait_closed()

    def quit(self, editor):
        editor.close()
        self.assertEqual(0, editor.wait_end())


def park():
    harness.move(*PARKED)


def plain(caption):
    """A menu item's caption as it is shown, without its shortcut."""
    return caption.split("\t")[0].replace("&&", "\0").replace("&", "").replace("\0", "&")


def enter(dialog, *names):
    """Types names into a file dialog, in quotes where there are several."""
    names = [str(name) for name in names]
    dialog.enter_file(names[0] if len(names) == 1 else " ".join(f'"{name}"' for name in names))
    dialog.wait_closed()


def set_ini_value(path, section, key, value):
    """Puts one value into an INI file that another program owns; comments get lost."""
    sections = harness.read_ini(path)
    sections.setdefault(section, {})[key.lower()] = value
    lines = []
    for name, keys in sections.items():
        lines += [f"[{name}]", *[f"{word}={text}" for word, text in keys.items()]]
    path.write_bytes(("\r\n".join(lines) + "\r\n").encode("cp1252"))
