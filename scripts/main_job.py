#!/usr/bin/env python3
"""Does a user's main job with the editor in out/WrenDeck: opens a joystick file and compiles it.

    main_job.py FILE        relative to out/WrenDeck; run by scripts/wine_env.sh

Tells what the editor showed, leaves a screenshot in out/wrendeck.png, and fails when something did
not happen.
"""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

# Found by the path above.
import harness  # pylint: disable=wrong-import-position

APP = ROOT / "out" / "WrenDeck"
PICTURE = ROOT / "out" / "wrendeck.png"
COMPILE_WITHIN = 60.0  # seconds; the editor itself gives up after 46


def expect(condition, what):
    if not condition:
        raise AssertionError(what)


def do_main_job(editor, caption):
    window = editor.wait_main("Editor")
    print(f"window: {window.title}")
    expect(window.title == "Wren Deck", "the main window's title is not \"Wren Deck\"")

    harness.wait_for(lambda: caption in editor.tab_captions(), f"the tab {caption}")
    print(f"tabs: {', '.join(editor.tab_captions())}")
    print(f"panel 1: {editor.panel(1)}")
    if editor.selected_tab() != caption:
        editor.click_tab(caption)

    editor.key("F9")
    box = editor.wait_dialog("Compile results", COMPILE_WITHIN)
    print(f"box: {box.title}: {box.text}")
    expect(box.text.startswith(f"{caption} was compiled successfully."), "the box tells otherwise")
    box.press("OK")

    panels = editor.panels()
    print(f"panels: {' | '.join(panels)}")
    expect(len(panels) == 8, "the status bar has not 8 panels")
    expect(panels[0].startswith(" Compiled successfully."), "panel 1 tells otherwise")
    harness.screenshot(PICTURE)
    print(f"screenshot: {PICTURE.relative_to(ROOT)}")

    editor.close()
    expect(editor.wait_end() == 0, "the editor ended with an error")


def main():
    lacking = harness.missing_environment()
    if lacking:
        sys.exit(f"main job: {lacking}")
    file = APP / sys.argv[1]
    log = ROOT / "build" / "logs" / "main_job.log"
    editor = harness.Program(APP / "WrenDeck.exe", [harness.windows_path(file)], APP, log)
    try:
        do_main_job(editor, file.name)
    except AssertionError as problem:
        for box in editor.dialogs():
            print(f"open box: {box.title}: {[child.text for child in box.children()]}")
        harness.screenshot(PICTURE)
        sys.exit(f"main job: {problem}")
    finally:
        editor.end()


if __name__ == "__main__":
    main()
