#!/usr/bin/env bash
# Runs a command while there is a disk of 256 kB that it may fill, named to Windows programs by
# DECK_SMALL_DISK. Only root can make one; without it the command runs all the same, and its cases for
# a full disk are skipped.
#
#   small_disk.sh COMMAND...
set -u
disk=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/small-disk

# Its writer may be a server that lets go of the last file a moment later.
Unmount() {
  mountpoint -q "$disk" || return
  umount "$disk" 2>/dev/null || umount --lazy "$disk"
}

mkdir -p "$disk"
Unmount # one that a killed run left
trap Unmount EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM
if mount -t tmpfs -o size=256k tmpfs "$disk" 2>/dev/null; then
  export DECK_SMALL_DISK="Z:${disk//\//\\}"
else
  printf 'no small disk can be made here: its cases are skipped\n'
fi
"$@"
