#!/usr/bin/env bash
# Checks what a user gets: that the program is one small file which needs nothing but the system, and
# that the system may protect it.
#
#   check_exe.sh EXE [size|imports|protection|sections]   one of the checks, or all of them
#   check_exe.sh --self-test                              makes programs that break each rule
set -u

export LC_ALL=C
tools=x86_64-w64-mingw32
mostBytes=3000000

# Libraries that every Windows from 7 on has of its own.
systemLibraries='advapi32.dll comctl32.dll comdlg32.dll gdi32.dll imm32.dll kernel32.dll msvcrt.dll'
systemLibraries+=' ole32.dll oleaut32.dll shell32.dll user32.dll winspool.drv'

found=0

Complain() {
  printf '%s\n' "$1"
  found=1
}

# CheckSize <exe>: without the debugging symbols, as it is shipped.
CheckSize() {
  local copy bytes
  copy=$(mktemp)
  "$tools-strip" -o "$copy" "$1" || Complain "$1 cannot be stripped"
  bytes=$(stat -c %s "$copy")
  rm -f "$copy"
  printf 'size: %d bytes stripped, at most %d\n' "$bytes" "$mostBytes"
  [ "$bytes" -lt "$mostBytes" ] || Complain "$1 is too large"
  [ "$bytes" -gt 0 ] || Complain "$1 is empty"
}

CheckImports() {
  local library libraries
  libraries=$("$tools-objdump" -p "$1" | sed -n 's/^[[:space:]]*DLL Name: //p')
  [ -n "$libraries" ] || Complain "$1 imports nothing"
  for library in $libraries; do
    [[ " $systemLibraries " == *" ${library,,} "* ]] ||
      Complain "$1 needs $library, which is not the system's"
  done
}

# HIGH_ENTROPY_VA is there for 64 bits only. Without relocations DYNAMIC_BASE is but a word.
CheckProtection() {
  local headers flag flags='DYNAMIC_BASE NX_COMPAT'
  headers=$("$tools-objdump" -p "$1")
  [[ $headers == *pei-x86-64* ]] && flags+=' HIGH_ENTROPY_VA'
  for flag in $flags; do
    grep -q "^[[:space:]]*$flag\$" <<<"$headers" || Complain "$1 lacks $flag"
  done
  "$tools-objdump" -h "$1" | grep -q '[[:space:]]\.reloc[[:space:]]' ||
    Complain "$1 cannot be moved: it has no relocations"
}

# objdump names a section that may be executed CODE, and one that may not be written READONLY.
CheckSections() {
  local sections name
  sections=$("$tools-objdump" -h "$1" | sed -n '/^ *[0-9]\+ /{N;s/\n/ /;p}')
  [ -n "$sections" ] || Complain "$1 has no sections"
  while read -r _ name _; do
    Complain "$1: section $name may be written and executed"
  done < <(grep 'CODE' <<<"$sections" | grep -v 'READONLY')
}

# Check <exe> [check]
Check() {
  local check
  if [ ! -s "$1" ]; then
    Complain "$1 is not there"
    return
  fi
  for check in ${2:-size imports protection sections}; do
    case "$check" in
      size) CheckSize "$1" ;;
      imports) CheckImports "$1" ;;
      protection) CheckProtection "$1" ;;
      sections) CheckSections "$1" ;;
      *) Complain "there is no check $check" ;;
    esac
  done
}

# Expect <accepted|refused> <exe> <check>
Expect() {
  local result=accepted
  bash "${BASH_SOURCE[0]}" "$2" "$3" >/dev/null 2>&1 || result=refused
  [ "$result" = "$1" ] || Complain "self-test: $3 of $(basename "$2") was $result"
}

# Make <exe> <options...>: a program that imports little, linked with these options.
Make() {
  "$tools-g++-posix" -Os -o "$1" "$folder/main.cpp" "${@:2}" || Complain "self-test: $1 was not made"
}

SelfTest() {
  local check protected='-static -Wl,--dynamicbase,--nxcompat,--high-entropy-va'
  folder=$(mktemp -d)
  printf '#include <string>\nint main(int n, char** v) { return std::stoi(v[n - 1]); }\n' \
    >"$folder/main.cpp"
  # shellcheck disable=SC2086  # $protected is a list of options
  {
    Make "$folder/good.exe" $protected
    for check in size imports protection sections; do
      Expect accepted "$folder/good.exe" "$check"
      Expect refused "$folder/absent.exe" "$check"
      : >"$folder/empty.exe"
      Expect refused "$folder/empty.exe" "$check"
    done

    printf '__attribute__((used)) char fat[4 << 20] = {1};\n' >"$folder/fat.cpp"
    Make "$folder/fat.exe" $protected "$folder/fat.cpp"
    Expect refused "$folder/fat.exe" size

    Make "$folder/dynamic.exe" -Wl,--dynamicbase,--nxcompat,--high-entropy-va
    Expect refused "$folder/dynamic.exe" imports

    Make "$folder/fixed.exe" -static -Wl,--disable-dynamicbase,--nxcompat
    Expect refused "$folder/fixed.exe" protection
    Make "$folder/executable_data.exe" -static -Wl,--dynamicbase,--disable-nxcompat
    Expect refused "$folder/executable_data.exe" protection
    Make "$folder/low_entropy.exe" -static \
      -Wl,--dynamicbase,--nxcompat,--disable-high-entropy-va
    Expect refused "$folder/low_entropy.exe" protection
    Make "$folder/unmovable.exe" $protected
    "$tools-objcopy" --remove-section .reloc "$folder/unmovable.exe"
    Expect refused "$folder/unmovable.exe" protection

    printf 'asm(".section .both,\\"wx\\"\\n.byte 195\\n.text");\n' >"$folder/both.cpp"
    Make "$folder/both.exe" $protected "$folder/both.cpp"
    Expect refused "$folder/both.exe" sections
  }
  rm -rf "$folder"
}

case "${1:-}" in
  --self-test) SelfTest ;;
  '')
    sed -n '2,6s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
  *) Check "$@" ;;
esac
exit $found
