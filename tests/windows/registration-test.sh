#!/usr/bin/env bash
# registration-test.sh <build folder>
#
# Registers and unregisters Quorvel.dll with regsvr32 and compares the registry before and after: for the machine, for a
# user who may not write there, and beside the other bitness.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
build=$1
# shellcheck source=tests/windows/wine-environment.sh
source "$here/wine-environment.sh"

work=$build/registration
rm -rf "$work"
mkdir -p "$work"
cd "$work"
system=win64 other=win32
[[ $architecture == x64 ]] || system=win32 other=win64
dll=$(windows_path "$build/Quorvel.dll")
folder=$(windows_path "$build")
library='TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1'
machine='HKEY_LOCAL_MACHINE\Software\Classes'
user='HKEY_CURRENT_USER\Software\Classes'
eventSources='HKEY_LOCAL_MACHINE\System\CurrentControlSet\Services\EventLog\Application'

fail() {
  printf '%s\n' "$*" >&2
  exit 1
}

register() { wine regsvr32 /s "$dll"; }
# remove KEY: an attempt that seems to have failed may have removed the key.
remove() { wine reg delete "$1" /f >/dev/null || ! wine reg query "$1" >/dev/null 2>&1; }
unregister() { wine regsvr32 /s /u "$dll"; }

# save KEY FILE: saves the key with all that is below it as text, in the form of an export, without the times of changes. On a
# busy machine the system may fail to save it once.
save() {
  save_key "$1" "$2.saved" || save_key "$1" "$2.saved"
  key="$1" awk '
    /^(WINE|;|#)/ { next }
    /^\[/ { sub(/\] [0-9]+$/, "]"); gsub(/\\\\/, "\\"); $0 = "[" ENVIRON["key"] "\\" substr($0, 2) }
    { print }' "$2.saved" >"$2.txt"
}

save_key() { wine "$(windows_path "$build/save_key.exe")" "$@"; }

# snapshot NAME: saves the hives to the files NAME.*.txt, which later checks read; starting a program for each is slow.
snapshot() {
  now=$1
  save "$machine" "$1.machine"
  save "$user" "$1.user"
  save "$eventSources" "$1.events"
}

# expect_unchanged SNAPSHOT HIVE...
expect_unchanged() {
  local hive
  for hive in "${@:2}"; do
    diff "$1.$hive.txt" "$now.$hive.txt" || fail "$hive differs after \"$now\"; see above."
  done
}

# value KEY NAME: prints the text of a value in the last snapshot, or nothing when there is none. The empty name is the
# key's default value. Keys ignore letter case.
value() {
  local name='@'
  [[ -z $2 ]] || name="\"$2\""
  key="[$1]" name="$name=\"" awk '
    /^\[/ { inside = tolower($0) == tolower(ENVIRON["key"]) }
    inside && index($0, ENVIRON["name"]) == 1 {
      text = substr($0, length(ENVIRON["name"]) + 1, length($0) - length(ENVIRON["name"]) - 1)
      gsub(/\\\\/, "\\", text)
      print text
    }' "$now".*.txt
}

# expect KEY NAME TEXT
expect() {
  local text
  text=$(value "$1" "$2")
  [[ $text == "$3" ]] || fail "$1 [$2]: \"$text\" instead of \"$3\""
}

# expect_registered CLASSES: checks the values that hosts need to create a context or to read the types.
expect_registered() {
  local at=$1 name id interface
  expect "$at\\$library" '' 'Quorvel remarks'
  expect "$at\\$library\\409\\$system" '' "$dll"
  expect "$at\\$library\\0\\$system" '' "$dll"
  expect "$at\\$library\\FLAGS" '' 0
  expect "$at\\$library\\HELPDIR" '' "$folder"
  while read -r name id; do
    expect "$at\\Quorvel.$name\\CLSID" '' "{$id}"
    expect "$at\\CLSID\\{$id}\\InprocServer32" '' "$dll"
    expect "$at\\CLSID\\{$id}\\InprocServer32" ThreadingModel Apartment
    expect "$at\\CLSID\\{$id}\\ProgID" '' "Quorvel.$name"
    expect "$at\\CLSID\\{$id}\\TypeLib" '' '{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}'
    expect "$at\\CLSID\\{$id}\\Version" '' 1.1
  done <<'CLASSES'
Remark 878C05C7-73A1-4CD6-8392-74C0FDB3051C
RemarkContext 8698FEEE-5589-45FA-8B93-90956F55C6A3
CLASSES
  while read -r interface id; do
    expect "$at\\Interface\\{$id}" '' "$interface"
    expect "$at\\Interface\\{$id}\\ProxyStubClsid32" '' '{00020424-0000-0000-C000-000000000046}'
    expect "$at\\Interface\\{$id}\\TypeLib" '' '{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}'
    expect "$at\\Interface\\{$id}\\TypeLib" Version 1.1
  done <<'INTERFACES'
_RemarkType 4BF3EBDA-B8DB-4139-BA9E-D222B0F9BF38
_Remark 45C92F4D-006D-4800-83CF-4A99C3CACB26
_RemarkContext E79433FC-7F61-493D-8546-2D2C4AA9F0BA
_RemarkList 8B330B1D-9736-4D88-9132-B37CCC6ACAC4
INTERFACES
  expect "$at\\Quorvel.RemarkType" '' ''
  expect "$at\\CLSID\\{8D569D19-CCBB-48AC-8C5C-4DE963B19350}" '' ''
}

# Removes the registration of an earlier test, and creates the shared keys, which an unregistration does not delete.
unregister
for key in CLSID Interface TypeLib; do wine reg add "$user\\$key" /f >/dev/null; done
snapshot before

printf 'For the machine, twice\n'
register || fail "regsvr32 could not register."
register || fail "regsvr32 could not register again."
snapshot registered
expect_registered "$machine"
expect "$eventSources\\Quorvel" EventMessageFile "$dll"
expect_unchanged before user
unregister || fail "regsvr32 could not unregister."
snapshot unregistered
expect_unchanged before machine user events

printf 'Beside the other bitness, and with something foreign in a key of ours\n'
register
wine reg add "$machine\\$library\\409\\$other" /ve /d 'C:\Other\Quorvel.dll' /f >/dev/null
wine reg add "$machine\\Quorvel.Remark" /v Foreign /d kept /f >/dev/null
unregister || fail "regsvr32 could not unregister beside the other bitness."
snapshot beside
expect "$machine\\$library\\409\\$system" '' ''
expect "$machine\\CLSID\\{8698FEEE-5589-45FA-8B93-90956F55C6A3}" '' ''
expect "$machine\\Quorvel.RemarkContext\\CLSID" '' '{8698FEEE-5589-45FA-8B93-90956F55C6A3}'
expect "$machine\\$library\\HELPDIR" '' 'C:\Other'
expect "$eventSources\\Quorvel" EventMessageFile 'C:\Other\Quorvel.dll'
remove "$machine\\$library\\409\\$other"
unregister
snapshot alone
expect "$machine\\Quorvel.Remark" Foreign kept
remove "$machine\\Quorvel.Remark"
snapshot afterwards
expect_unchanged before machine user events

printf 'For a user who may not write for the machine\n'
wine reg add "$machine\\Quorvel.RemarkContext" /v Foreign /d kept /f >/dev/null
wine "$(windows_path "$build/deny_writing.exe")" "${machine#*\\}\\Quorvel.RemarkContext" || fail "The key stays open."
snapshot closed
register || fail "regsvr32 could not register for the user."
snapshot denied
expect_registered "$user"
expect_unchanged closed machine events
! unregister || fail "regsvr32 says that it has unregistered what it may not."
snapshot denied_unregistered
expect_unchanged closed machine user events

# Only a restart makes the key writable again.
restart_wine
remove "$machine\\Quorvel.RemarkContext"
