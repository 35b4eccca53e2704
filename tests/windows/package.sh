#!/usr/bin/env bash
# package.sh <build folder for x64> <build folder for x86> <architecture>
#
# Packs both libraries, checks the content of the archive, and registers and unregisters from a folder whose path has
# blanks and an ampersand, on a Windows for programs of that architecture only.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
x64=$(readlink -f "$1") x86=$(readlink -f "$2")
build=$x64
[[ $3 == x64 ]] || build=$x86
# shellcheck source=tests/windows/wine-environment.sh
source "$here/wine-environment.sh"

work=$build/package
folder="$work/moved & unpacked"

fail() {
  printf '%s\n' "$*" >&2
  exit 1
}

# expect WHAT WANTED GOT
expect() { [[ $2 == "$3" ]] || fail "$(printf '%s: expected\n%s\ngot\n%s' "$1" "$2" "$3")"; }

# in_archive COMMAND: runs a command file of the archive from another folder and prints its output.
in_archive() {
  printf '@call "%s\\%s" /s\r\n' "$(windows_path "$folder")" "$1" >"$work/run.cmd"
  (cd "$work" && timeout 120 wine cmd /c run.cmd </dev/null | tr -d '\r')
}

registered() { wine reg query 'HKLM\Software\Classes\Quorvel.RemarkContext' >/dev/null 2>&1; }

rm -rf "$work"
mkdir -p "$folder"
"$here/../../scripts/windows-package" "$x64" "$x86" "$work"
(cd "$folder" && cmake -E tar xf "$work"/quorvel-*-windows.zip)
expect "the archive" 'Quorvel.tlb
README.txt
include/quorvel/com.h
include/quorvel/quorvel.h
include/quorvel/quorvel.idl
parts.json
register.cmd
schema/grants.sql
schema/quorvel.sql
schema/sample.sql
unregister.cmd
x64/Quorvel.dll
x86/Quorvel.dll' "$(cd "$folder" && find . -type f -printf '%P\n' | LC_ALL=C sort)"
cmake -D LIST="$folder/parts.json" -D FOLDER="$folder" -D "NEEDED=SQLite;wxWidgets;fmt;mingw-w64 runtime;winpthreads" \
  -P "$here/../install/CheckPartsList.cmake" || fail "the list of parts is wrong"
expect "lines without CR LF" '' "$(grep -nv $'\r$' "$folder"/*.cmd "$folder/README.txt" || true)"
for library in "x64 pei-x86-64" "x86 pei-i386"; do
  objdump -f "$folder/${library% *}/Quorvel.dll" | grep -q "${library#* }" || fail "the archive has another library for ${library% *}"
  # Removing the symbols must not remove what the system needs to choose the address.
  headers=$(objdump -hp "$folder/${library% *}/Quorvel.dll")
  for sign in DYNAMIC_BASE NX_COMPAT '[.]reloc'; do
    grep -q "[[:space:]]$sign" <<<"$headers" ||
      fail "the library in the archive for ${library% *} has no protection: $sign"
  done
done

# A 64-bit Windows says what it leaves out, a 32-bit one has no place for the other library.
leftOut=
[[ $architecture == x86 ]] || leftOut='
x86\Quorvel.dll: left out, since this Windows runs no programs of that kind.'
library=$architecture\\Quorvel.dll
expect "registering" "$library: registered.$leftOut

Quorvel is registered for all users of this machine.
Leave the files where they are: the registration names them." "$(in_archive register.cmd)"
expect "unregistering" "$library: unregistered.$leftOut" "$(in_archive unregister.cmd)"
! registered || fail "something stayed registered"

echo broken >"$folder/$architecture/Quorvel.dll"
if said=$(in_archive register.cmd); then fail "a library that cannot be loaded was registered: $said"; fi
expect "a library that cannot be loaded" "$library: NOT registered: the file cannot be loaded.$leftOut" "$said"
