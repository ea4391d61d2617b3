#!/usr/bin/env bash
# Installs what the build and the tests use and this machine lacks. Called by test.sh and run.sh;
# safe to call at any time: when nothing is missing it only looks, and a package that cannot be had
# is named in one line and left to the later steps, which find out for themselves what is there.
set -u

# One line per thing: how to see that it is there (a command, or a file pattern with a slash in it),
# then the Debian package that brings it.
needs='
g++                                                     g++
cmake                                                   cmake
ninja                                                   ninja-build
/usr/src/googletest/CMakeLists.txt                      googletest
/usr/include/benchmark/benchmark.h                      libbenchmark-dev
clang-format                                            clang-format
clang-tidy                                              clang-tidy
cppcheck                                                cppcheck
clang                                                   clang
/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a  libclang-rt-dev
x86_64-w64-mingw32-g++-posix                            g++-mingw-w64-x86-64-posix
makensis                                                nsis
cmark-gfm                                               cmark-gfm
i686-w64-mingw32-g++-posix                              g++-mingw-w64-i686-posix
gendef                                                  mingw-w64-tools
wine                                                    wine
/usr/lib/wine/wine64                                    wine64
Xvfb                                                    xvfb
xdotool                                                 xdotool
xprop                                                   x11-utils
import                                                  imagemagick
openbox                                                 openbox
/usr/share/fonts/truetype/liberation*/LiberationMono-Regular.ttf  fonts-liberation
/usr/share/wine/fonts/vgafix.fon                        fonts-wine
python3                                                 python3
/usr/sbin/cupsd                                         cups-daemon
/usr/sbin/lpadmin                                       cups-client
/usr/share/cups/ppdc                                    cups-ppdc
/usr/lib/cups/filter/pdftopdf                           cups-filters
gs                                                      ghostscript
/usr/lib/cups/backend/cups-pdf                          printer-driver-cups-pdf
pdftotext                                               poppler-utils
'

Present() {
  case "$1" in
    */*) compgen -G "$1" >/dev/null ;;
    *) command -v "$1" >/dev/null ;;
  esac
}

MissingPackages() {
  local sign package
  while read -r sign package; do
    [ -z "$sign" ] || Present "$sign" || printf '%s\n' "$package"
  done <<<"$needs"
}

# The command that may install packages, or nothing.
RootPrefix() {
  if [ "$(id -u)" = 0 ]; then
    printf 'env'
  elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    printf 'sudo -n env'
  fi
}

Main() {
  local missing root install package
  missing=$(MissingPackages)
  [ -n "$missing" ] || return 0
  missing=${missing//$'\n'/ }

  root=$(RootPrefix)
  if ! command -v apt-get >/dev/null; then
    printf 'setup: going on without (no apt-get here): %s\n' "$missing"
    return 0
  fi
  if [ -z "$root" ]; then
    printf 'setup: going on without (neither root nor sudo to install them): %s\n' "$missing"
    return 0
  fi

  printf 'setup: installing %s\n' "$missing"
  install="$root DEBIAN_FRONTEND=noninteractive apt-get"
  $install update -qq </dev/null >/dev/null 2>&1
  # shellcheck disable=SC2086  # both are lists of words
  if ! $install install -y -qq --no-install-recommends $missing </dev/null >/dev/null 2>&1; then
    # One package that cannot be had must not keep the others away.
    for package in $missing; do
      $install install -y -qq --no-install-recommends "$package" </dev/null >/dev/null 2>&1
    done
  fi

  missing=$(MissingPackages)
  [ -z "$missing" ] ||
    printf 'setup: going on without (could not be installed): %s\n' "${missing//$'\n'/ }"
}

Main
