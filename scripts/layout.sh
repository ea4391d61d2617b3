#!/usr/bin/env bash
# Lays out the directory that the editor runs in, with the stand-ins for the programs that it works
# with and samples to open:
#
#   layout.sh [destination]     out/WrenDeck by default
#
# The editor and the stand-ins come from build/windows, which must have been built. An earlier layout
# is replaced.
set -eu
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
destination=${1:-$root/out/WrenDeck}
built=$root/build/windows
strip=$(command -v x86_64-w64-mingw32-strip || true)

# A program as users get it: without the debugging symbols, which are most of the file.
Program() {
  if [ -n "$strip" ]; then
    "$strip" -o "$destination/$(basename "$1")" "$1"
  else
    cp "$1" "$destination/"
  fi
}

missing=
for file in "$built/bin/WrenDeck.exe" \
  "$built"/standins/{Wren,Starter,HOTASCompiler,HOTASConfig,RunAppProbe}.exe \
  "$root"/standins/{Wren.ini,KeyCodes.txt,files} "$root/packaging/info"; do
  [ -e "$file" ] || missing+=" ${file#"$root"/}"
done
if [ -n "$missing" ]; then
  printf 'layout: missing:%s\n' "$missing" >&2
  exit 1
fi

if [ -n "$(ls -A "$destination" 2>/dev/null)" ] && [ ! -e "$destination/WrenDeck.exe" ]; then
  printf 'layout: %s holds something else\n' "$destination" >&2
  exit 1
fi
rm -rf "$destination"
mkdir -p "$destination"/{Files,Info,Temp}
Program "$built/bin/WrenDeck.exe"
for name in Wren Starter HOTASCompiler HOTASConfig RunAppProbe; do
  Program "$built/standins/$name.exe"
done
cp "$root"/standins/{Wren.ini,KeyCodes.txt} "$destination/"
cp -R "$root/standins/files/." "$destination/Files/"
cp -R "$root/packaging/info/." "$destination/Info/"
cp "$root/standins/KeyCodes.txt" "$destination/Info/"
printf '%s\n' "$destination"
