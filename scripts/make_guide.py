#!/usr/bin/env python3
"""Makes one page for any browser of docs/guide.md, with its pictures inside.

    make_guide.py PAGE
"""

import base64
import html
import re
import subprocess
import sys
from pathlib import Path

GUIDE = Path(__file__).resolve().parent.parent / "docs" / "guide.md"

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>{title}</title>
<style>
body {{ font: 16px/1.5 "Segoe UI", Tahoma, sans-serif; max-width: 50em; margin: 2em auto; padding: 0 1em; }}
table {{ border-collapse: collapse; }}
td, th {{ border: 1px solid #bbb; padding: .25em .6em; text-align: left; vertical-align: top; }}
code, pre {{ font-family: Consolas, "Courier New", monospace; background: #f3f3f3; }}
pre {{ padding: .6em; overflow-x: auto; }}
img {{ max-width: 100%; }}
</style>
</head>
<body>
{body}</body>
</html>
"""


def plain(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup))


def anchor(heading):
    """The name by which links of the guide call a heading."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def with_anchors(body):
    def named(match):
        level, text = match.groups()
        return f'<h{level} id="{anchor(plain(text))}">{text}</h{level}>'
    return re.sub(r"<h([1-6])>(.*?)</h\1>", named, body)


def with_pictures(body):
    def inside(match):
        data = base64.b64encode((GUIDE.parent / match.group(1)).read_bytes()).decode("ascii")
        return f'src="data:image/png;base64,{data}"'
    return re.sub(r'src="([^":]+\.png)"', inside, body)


def dead_links(body):
    names = set(re.findall(r' id="([^"]+)"', body))
    return [link for link in re.findall(r'href="([^"]+)"', body)
            if not (link.startswith("#") and link[1:] in names)]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    text = GUIDE.read_text(encoding="utf-8")
    body = subprocess.run(["cmark-gfm", "--extension", "table"], input=text, check=True,
                          capture_output=True, text=True, encoding="utf-8").stdout
    body = with_pictures(with_anchors(body))
    dead = dead_links(body)
    if dead:
        sys.exit(f"make_guide: nothing is at {' '.join(dead)}")
    title = plain(re.search(r"<h1[^>]*>(.*?)</h1>", body).group(1))
    page = PAGE.format(title=html.escape(title), body=body)
    Path(sys.argv[1]).write_text(page, encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
