#!/usr/bin/env bash
# Takes pictures of every window of the editor in out/WrenDeck at 100, 125, 150 and 200 %, with dark
# colours, and of its first start on a small and on a large screen, into build/tour:
#
#   tour.sh             all of it
#   tour.sh docs        then also makes the small pictures of README and docs/guide.md from them
#   tour.sh only NAME   one of them: 100, 125, 150, 200, dark, first-small or first-large
#
# Needs the program laid out (scripts/layout.sh). Somebody has to look at the pictures: nothing here
# judges them.
set -eu
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
only=
[ "${1:-}" != only ] || only=$2
# A picture that could not be made must not be an old one.
rm -rf "build/tour/$only"
mkdir -p build/tour build/logs

# Tour <name> <screen> <dots per inch> <what to show>
Tour() {
  [ -z "$only" ] || [ "$only" = "$1" ] || return 0
  printf '== %s\n' "$1"
  DECK_SCREEN=$2 scripts/wine_env.sh python3 scripts/tour.py "build/tour/$1" "$3" "$4"
}

# Small <picture> <name in docs/images> <pixels to cut off on each side>: a window's frame on the
# display is a little smaller than the window. Few colours are needed: a palette keeps it light.
Small() {
  convert "build/tour/$1.png" -shave "$3x$3" -bordercolor black -border 1 -trim +repage +dither \
    -colors 48 -strip "PNG8:docs/images/$2.png"
}

Tour 100 1280x1024 96 windows
Tour 125 1600x1280 120 windows
Tour 150 1920x1536 144 windows
Tour 200 2560x2048 192 windows
Tour dark 1280x1024 96 dark
Tour first-small 1024x768 96 first-start
Tour first-large 3840x2160 192 first-start

if [ "${1:-}" = docs ]; then
  Small 100/macros main 0
  Small 100/replace find_dialog 4
  Small 100/quick-help-slash-modifiers quick_help 4
  ls -l docs/images
fi
