#!/usr/bin/env bash
# Makes what is given to users, in out/release or in the folder named:
#
#   package.sh [--64] [folder]
#
#   WrenDeck-<version>.zip          the 64-bit program with its help pages and the guide
#   WrenDeck-<version>-setup.exe    the same with an installer, for 64-bit Windows
#   WrenDeck-<version>-32bit.zip    the same for 32-bit Windows; not with --64
#   SHA256SUMS
#
# The same commit gives the same bytes: every date is that of the commit. What is built is the tree as
# it stands; a line tells when that is not a commit.
set -eu
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD
guide='WrenDeck guide.html'

only64=no
if [ "${1:-}" = --64 ]; then
  only64=yes
  shift
fi
destination=${1:-$root/out/release}

export LC_ALL=C TZ=UTC
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
umask 022
if [ -z "${SOURCE_DATE_EPOCH:-}" ]; then
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
  [ -z "$(git status --porcelain)" ] || printf 'package: the tree is not as it was committed\n' >&2
fi
export SOURCE_DATE_EPOCH

for program in makensis cmark-gfm python3 x86_64-w64-mingw32-g++-posix; do
  command -v "$program" >/dev/null || {
    printf 'package: %s is not installed, see scripts/setup.sh\n' "$program" >&2
    exit 1
  }
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p build/logs "$destination"
destination=$(cd "$destination" && pwd)
rm -f "$destination"/WrenDeck-*.{zip,exe} "$destination/SHA256SUMS"

# Program <preset> <triple>: builds it and leaves it stripped in the folder of that preset.
Program() {
  local log=build/logs/package-$1.log folder=$work/$1
  if ! { cmake --preset "$1" && cmake --build --preset "$1" -j "$(nproc)" --target WrenDeck; } \
    >"$log" 2>&1; then
    printf 'package: %s was not built, see %s\n' "$1" "$log" >&2
    exit 1
  fi
  mkdir -p "$folder/Info"
  "$2-strip" -o "$folder/WrenDeck.exe" "build/$1/bin/WrenDeck.exe"
  scripts/check_exe.sh "$folder/WrenDeck.exe" >"$log" || {
    cat "$log" >&2
    exit 1
  }
  cp packaging/info/* "$folder/Info/"
  cp "$work/$guide" "$folder/"
  find "$folder" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
}

# Zip <preset> <name>: in the order of the names, with one date and without the owner of the files.
Zip() {
  python3 - "$work/$1" "$destination/$2" <<'PYTHON'
import os, pathlib, sys, time, zipfile
folder = pathlib.Path(sys.argv[1])
when = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
with zipfile.ZipFile(sys.argv[2], "w") as made:
    for path in sorted(path for path in folder.rglob("*") if path.is_file()):
        entry = zipfile.ZipInfo(path.relative_to(folder).as_posix(), when)
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.create_system = 0
        made.writestr(entry, path.read_bytes(), compresslevel=9)
PYTHON
}

# The macros that the installer calls for its pages.
Pages() {
  local macro file
  for macro in Install Remove; do
    printf '!macro %sPages\n' "$macro"
    for file in packaging/info/*; do
      printf '!insertmacro %sPage "%s"\n' "$macro" "$(basename "$file")"
    done
    printf '!macroend\n'
  done
}

Installer() {
  local log=build/logs/package-installer.log
  Pages >"$work/pages.nsh"
  if ! makensis -NOCONFIG -V3 -WX -DVERSION="$version" -DCONTENTS="$work/windows" -DPAGES="$work/pages.nsh" \
    -DRESULT="$destination/$1" packaging/installer.nsi >"$log" 2>&1; then
    printf 'package: no installer, see %s\n' "$log" >&2
    tail -n 20 "$log" >&2
    exit 1
  fi
}

scripts/make_guide.py "$work/$guide"
Program windows x86_64-w64-mingw32
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/windows/CMakeCache.txt)
Zip windows "WrenDeck-$version.zip"
Installer "WrenDeck-$version-setup.exe"
if [ $only64 = no ]; then
  if command -v i686-w64-mingw32-g++-posix >/dev/null; then
    Program windows-x86 i686-w64-mingw32
    Zip windows-x86 "WrenDeck-$version-32bit.zip"
  else
    printf 'package: no 32-bit program: i686-w64-mingw32-g++-posix is not installed\n' >&2
  fi
fi
(cd "$destination" && sha256sum WrenDeck-* >SHA256SUMS && cat SHA256SUMS)
