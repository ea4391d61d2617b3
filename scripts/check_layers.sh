#!/usr/bin/env bash
# Checks the rules about who may include whom, over all .h and .cpp files of the folders, and that no
# header includes itself by way of others.
#
#   check_layers.sh [root]        the tree at root, the repository by default
#   check_layers.sh --self-test   breaks each rule in a tree of its own and expects a complaint
set -u

features='macros tools compiler find keytest help'
folders="platform documents $features app standins tests"

# What a folder of the program may include besides itself. The other folders may include anything.
AllowedFor() {
  case "$1" in
    platform) echo '' ;;
    documents) echo 'platform' ;;
    app) echo "platform documents $features" ;;
    *) echo 'platform documents' ;;
  esac
}

# Headers that bring in Win32 types, in whatever case they are written.
win32Headers='windows|windowsx|winuser|wingdi|winnt|windef|commctrl|commdlg|richedit|richole|tom|ole2'
win32Headers+='|oleidl|objbase|objidl|shellapi|shlobj|shlwapi|htmlhelp|winspool|winreg|tlhelp32|psapi'
win32Headers+='|uxtheme|unknwn|tchar|process|io|direct'

found=0

Complain() {
  printf '%s: %s\n' "$1" "$2"
  found=1
}

# Includes <root> <folder>: "file<TAB>header as written" for each include line.
Includes() {
  (cd "$1" && find "$2" -type f \( -name '*.h' -o -name '*.cpp' \) -exec \
    grep -HoE '^[[:space:]]*#[[:space:]]*include[[:space:]]*("[^"]*"|<[^>]*>)' {} + 2>/dev/null) |
    sed -E 's/:[[:space:]]*#[[:space:]]*include[[:space:]]*/\t/' | sort
}

# CheckSystemInclude <folder> <file> <header>
CheckSystemInclude() {
  case "$1/$2" in
    standins/* | tests/* | */win32/*) return ;;
  esac
  if [[ ${3,,} =~ ^\<($win32Headers)\.h\>$ ]]; then
    Complain "$2" "$3 outside a win32/ folder"
  fi
}

# CheckOwnInclude <folder> <file> <header without quotes>
CheckOwnInclude() {
  local target=${3%%/*}
  if [[ $3 != */* || " $folders " != *" $target "* ]]; then
    Complain "$2" "\"$3\" does not begin with a folder of the repository"
    return
  fi
  case "$1" in standins | tests) return ;; esac
  if [[ $target != "$1" && " $(AllowedFor "$1") " != *" $target "* ]]; then
    Complain "$2" "$1 must not include $target (\"$3\")"
  fi
  if [[ $3 == */win32/* && $2 != */win32/* ]]; then
    Complain "$2" "portable code must not include \"$3\""
  fi
}

# A header that includes itself by way of others.
CheckCycles() {
  local folder file header loop
  loop=$(for folder in $folders; do
    [ -d "$1/$folder" ] && Includes "$1" "$folder"
  done | while IFS=$'\t' read -r file header; do
    case "$header" in '"'*) printf '%s %s\n' "$file" "${header//\"/}" ;; esac
  done | tsort 2>&1 >/dev/null | sed -n 's/^tsort: \(.*\/.*\)/\1/p')
  [ -z "$loop" ] || Complain 'headers include each other' "${loop//$'\n'/ }"
}

Check() {
  local folder file header
  CheckCycles "$1"
  for folder in $folders; do
    [ -d "$1/$folder" ] || continue
    while IFS=$'\t' read -r file header; do
      case "$header" in
        '<'*) CheckSystemInclude "$folder" "$file" "$header" ;;
        '"'*) CheckOwnInclude "$folder" "$file" "${header//\"/}" ;;
      esac
    done < <(Includes "$1" "$folder")
  done
  return $found
}

# Judge <tree> <accepted|refused> <what it holds>
Judge() {
  local result=accepted
  bash "${BASH_SOURCE[0]}" "$1" >/dev/null || result=refused
  rm -rf "$1"
  if [ "$result" != "$2" ]; then
    printf 'self-test: %s was %s\n' "$3" "$result"
    found=1
  fi
}

# Expect <accepted|refused> <file> <line>: a tree that holds only this file with this line.
Expect() {
  local tree
  tree=$(mktemp -d)
  mkdir -p "$tree/$(dirname "$2")"
  printf '%s\n' "$3" >"$tree/$2"
  Judge "$tree" "$1" "$3 in $2"
}

# ExpectCycle <accepted|refused> <included> <header>: a.h includes b.h, and this header that one.
ExpectCycle() {
  local tree
  tree=$(mktemp -d)
  mkdir "$tree/find"
  printf '#include "find/b.h"\n' >"$tree/find/a.h"
  printf '#include "find/%s"\n' "$2" >"$tree/find/$3"
  Judge "$tree" "$1" "a.h includes b.h, $3 includes $2"
}

SelfTest() {
  ExpectCycle refused a.h b.h
  ExpectCycle accepted c.h b.h
  Expect refused find/find_text.cpp '#include <windows.h>'
  Expect refused app/editor.h '  #  include <CommCtrl.h>'
  Expect accepted find/win32/find_dialog.cpp '#include <windows.h>'
  Expect accepted platform/win32/handles.h '#include <commctrl.h>'
  Expect accepted standins/win32/main.cpp '#include <windows.h>'
  Expect accepted tests/window/tab_test.cpp '#include <windows.h>'
  Expect accepted find/find_text.cpp '#include <string>'
  Expect refused find/find_text.cpp '#include "tools/align_slashes.h"'
  Expect refused help/win32/page.cpp '#include "keytest/key_names.h"'
  Expect refused macros/list.h '#include "app/editor.h"'
  Expect accepted macros/list.h '#include "documents/document_set.h"'
  Expect accepted app/editor.cpp '#include "find/find_text.h"'
  Expect refused platform/files.h '#include "documents/document_set.h"'
  Expect refused platform/win32/files.cpp '#include "help/pages.h"'
  Expect accepted platform/files.cpp '#include "platform/files.h"'
  Expect refused documents/printing.cpp '#include "compiler/compile.h"'
  Expect refused documents/printing.cpp '#include "app/editor.h"'
  Expect accepted documents/printing.cpp '#include "platform/files.h"'
  Expect refused app/editor.cpp '#include "tests/fakes/fake_files.h"'
  Expect refused tools/undo.cpp '#include "standins/switches.h"'
  Expect refused documents/printing.cpp '#include "platform/win32/handles.h"'
  Expect refused tools/undo.cpp '#include "../find/find_text.h"'
  Expect refused tools/undo.cpp '#include "undo.h"'
}

case "${1:-}" in
  --self-test) SelfTest ;;
  '') Check "$(cd "$(dirname "$0")/.." && pwd)" ;;
  *) Check "$1" ;;
esac
exit $found
