#!/usr/bin/env bash
# A Wine prefix, a virtual display and a window manager of the build's own, so that the Windows
# programs run the same on every machine and nothing of the user's own Wine is touched.
#
#   source scripts/wine_env.sh
#   WineMissing || ...    # prints what is lacking; fails when nothing is
#   WineBegin private     # exports DISPLAY, WINEPREFIX ...; ends by itself when the script ends
#   WineBegin here        # the same prefix, but on the display that DISPLAY names
#
# Run instead of sourced it starts one command inside that environment:
#
#   scripts/wine_env.sh python3 -m unittest discover -s tests/desktop
#
# DECK_SCREEN=3840x2160 makes the virtual display of that size. DECK_LANE=2 is a second environment
# that runs beside the usual one.

wineRoot=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
wineHome=$wineRoot/build/wine${DECK_LANE:+-$DECK_LANE}
wineOwnerFile=$wineHome.owner
wineLogs=$wineRoot/build/logs${DECK_LANE:+/lane-$DECK_LANE}
wineDisplayPid=
wineManagerPid=

# Prints the programs that are lacking here, and succeeds when there are any.
WineMissing() {
  local program missing=
  for program in wine wineserver Xvfb openbox; do
    command -v "$program" >/dev/null || missing+=" $program"
  done
  [ -n "$missing" ] || return 1
  printf 'not installed:%s\n' "$missing"
}

# Everything that changes what a program sees is fixed here: the ANSI code page follows LC_ALL, and
# without the overrides a new prefix asks to download packages or writes menu entries for the user.
WineVariables() {
  export WINEPREFIX=$wineHome WINEARCH=win64 WINEDEBUG=-all LC_ALL=C.UTF-8
  export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=d'
  unset LANG LANGUAGE
  WineFixAddresses
}

# Debian's loader of Wine lies low in the address space, with its heap anywhere in the gigabyte above,
# and one page in there must be free: one start in 8,000 finds the heap on it and ends without a word.
# The heap is always at the same place for what is started without random addresses. A container may
# forbid that; then it stays at one in 8,000.
WineFixAddresses() {
  local commands=$wineHome.bin
  if [[ :$PATH: == *:$commands:* ]] || ! setarch -R true 2>/dev/null; then
    return 0
  fi
  mkdir -p "$commands"
  printf '#!/bin/sh\nexec setarch -R "%s" "$@"\n' "$(command -v wine)" >"$commands/wine"
  chmod +x "$commands/wine"
  PATH=$commands:$PATH
}

# WineBegin private|here
WineBegin() {
  WineVariables
  mkdir -p "$wineLogs"
  WineTakeOwnership || return 1
  trap WineEnd EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM
  WineStopServer # one that a killed run left behind
  if [ "$1" = private ]; then
    WineStartDisplay || return 1
  fi
  WinePrepare && WineStartServer
}

# Stops what WineBegin started: by process id, and the server of this prefix only.
WineEnd() {
  trap - EXIT INT TERM
  WineStopServer
  local pid
  for pid in $wineManagerPid $wineDisplayPid; do
    kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null || true
  done
  wineManagerPid='' wineDisplayPid=''
  rm -f "$wineOwnerFile"
}

# Two runs in one tree would end each other's server, so the second one is refused.
WineTakeOwnership() {
  local owner
  if owner=$(cat "$wineOwnerFile" 2>/dev/null) && [ -n "$owner" ] &&
    [ "$owner" = "$(WineProcessIdentity "${owner%% *}")" ]; then
    printf 'wine: process %s already uses %s\n' "${owner%% *}" "$wineHome" >&2
    return 1
  fi
  WineProcessIdentity $$ >"$wineOwnerFile"
}

# A process id comes again after a while, together with its start time it does not.
WineProcessIdentity() {
  local stat
  stat=$(cat "/proc/$1/stat" 2>/dev/null) || return 1
  # shellcheck disable=SC2086  # the fields after the name, which may hold blanks itself
  set -- "$1" ${stat##*) }
  printf '%s %s\n' "$1" "${21}"
}

WineStartDisplay() {
  local numberFile=$wineHome.display
  : >"$numberFile"
  # The server itself takes the first display number that is free.
  Xvfb -displayfd 3 -screen 0 "${DECK_SCREEN:-1280x1024}x24" -nolisten tcp \
    3>"$numberFile" >"$wineLogs/xvfb.log" 2>&1 </dev/null &
  wineDisplayPid=$!
  if ! WineWaitFor 10 test -s "$numberFile"; then
    printf 'wine: no virtual display, see %s\n' "$wineLogs/xvfb.log" >&2
    return 1
  fi
  DISPLAY=:$(cat "$numberFile")
  export DISPLAY
  rm -f "$numberFile"
  WineManagerSettings >"$wineHome.openbox.xml"
  openbox --sm-disable --config-file "$wineHome.openbox.xml" >"$wineLogs/openbox.log" 2>&1 </dev/null &
  wineManagerPid=$!
  WineWaitFor 10 WineManagerRuns || printf 'wine: going on without a window manager\n' >&2
}

# The usual settings without their shortcuts: Alt+F4, Print and all other keys are the program's.
WineManagerSettings() {
  local usual=/etc/xdg/openbox/rc.xml
  if [ -r "$usual" ]; then
    sed '/<keyboard>/,/<\/keyboard>/c <keyboard></keyboard>' "$usual"
  else
    printf '<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard></keyboard></openbox_config>\n'
  fi
}

WineManagerRuns() {
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

# WineWaitFor <seconds> <command...>
WineWaitFor() {
  local tries=$(($1 * 20))
  shift
  until "$@"; do
    [ $((tries -= 1)) -gt 0 ] || return 1
    sleep 0.05
  done
}

# A server that stays spares every program the half second of starting one.
WineStartServer() {
  wineserver -p </dev/null >/dev/null 2>&1
  # The first program waits until Windows' services are up; no test shall pay for that.
  wine cmd /c exit </dev/null >/dev/null 2>&1
}

WineStopServer() {
  [ -d "$wineHome" ] || return 0
  wineserver -k </dev/null >/dev/null 2>&1 || true # there is none to stop
  wineserver -w </dev/null >/dev/null 2>&1 || true
}

# Makes the prefix unless one from this very recipe is there.
WinePrepare() {
  local recipe
  recipe=$(wine --version 2>/dev/null; cat "${BASH_SOURCE[0]}")
  recipe=$(cksum <<<"$recipe")
  [ "$recipe" != "$(cat "$wineHome/recipe" 2>/dev/null)" ] || return 0

  rm -rf "$wineHome"
  mkdir -p "$wineHome"
  wineserver -p </dev/null >/dev/null 2>&1
  if ! wine wineboot -i </dev/null >"$wineLogs/wineboot.log" 2>&1; then
    printf 'wine: no prefix, see %s\n' "$wineLogs/wineboot.log" >&2
    return 1
  fi
  WineCopyFonts
  WineWriteRegistry >"$wineHome/deck.reg"
  wine regedit /S "$wineHome/deck.reg" </dev/null >>"$wineLogs/wineboot.log" 2>&1
  WineStopServer # fonts are looked for when a server starts
  printf '%s\n' "$recipe" >"$wineHome/recipe"
}

# The raster and dialog fonts that every Windows has; without them each face is a DejaVu one.
WineCopyFonts() {
  local font
  for font in vgafix.fon vgasys.fon sserife.fon coure.fon smalle.fon tahoma.ttf tahomabd.ttf; do
    if [ -e "/usr/share/wine/fonts/$font" ]; then
      cp "/usr/share/wine/fonts/$font" "$wineHome/drive_c/windows/Fonts/"
    fi
  done
}

# No window for a crash, which would keep the run waiting for somebody to close it; the fonts under
# the names that Windows gives them.
WineWriteRegistry() {
  cat <<'REG'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"Arial"="Liberation Sans"
"Courier New"="Liberation Mono"
"Times New Roman"="Liberation Serif"

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\Fonts]
"Fixedsys"="vgafix.fon"
"System"="vgasys.fon"
"MS Sans Serif"="sserife.fon"
"Courier"="coure.fon"
"Small Fonts"="smalle.fon"
"Tahoma (TrueType)"="tahoma.ttf"
"Tahoma Bold (TrueType)"="tahomabd.ttf"
REG
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
  if lacking=$(WineMissing); then
    printf 'wine: %s\n' "$lacking" >&2
    exit 1
  fi
  WineBegin private || exit 1
  "$@"
  exit
fi
