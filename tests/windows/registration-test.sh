#!/usr/bin/env bash
# registration-test.sh <build folder>
#
# Registers and unregisters Quorvel.dll with the system's own tool and looks at the registry with the system's own, too:
# for the machine, for a user who may not write there, beside the other bitness, and what is left behind.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
build=$1
# shellcheck source=tests/windows/wine-environment.sh
source "$here/wine-environment.sh"

work=$build/registration
rm -rf "$work"
mkdir -p "$work"
cd "$work"
dll=$(windows_path "$build/Quorvel.dll")
folder=$(windows_path "$build")
classes='HKLM\Software\Classes'
library='TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1'
eventSource='HKLM\System\CurrentControlSet\Services\EventLog\Application\Quorvel'

fail() {
  printf '%s\n' "$*" >&2
  exit 1
}

register() { wine regsvr32 /s "$dll"; }
unregister() { wine regsvr32 /s /u "$dll"; }

# value KEY NAME: the text of a value; the empty name is the key's own. Nothing when there is none.
value() {
  local name=(/ve)
  [[ -z $2 ]] || name=(/v "$2")
  wine reg query "$1" "${name[@]}" 2>/dev/null | tr -d '\r' | sed -n 's/^.*    REG_SZ    //p'
}

# expect KEY NAME TEXT
expect() {
  local text
  text=$(value "$1" "$2")
  [[ $text == "$3" ]] || fail "$1 [$2]: \"$text\" instead of \"$3\""
}

# snapshot NAME: what the hives hold, in the file NAME.
snapshot() {
  local hive=0 key
  for key in 'HKLM\Software\Classes' 'HKCU\Software\Classes' \
    'HKLM\System\CurrentControlSet\Services\EventLog\Application'; do
    wine reg export "$key" "$1.$((++hive)).reg" /y >/dev/null || fail "$key could not be exported."
  done
  cat "$1".*.reg >"$1"
}

# expect_registered CLASSES DLL: what a host looks up to create a context or to read the types.
expect_registered() {
  local at=$1 name id interface
  expect "$at\\$library" '' 'Quorvel remarks'
  expect "$at\\$library\\409\\win64" '' "$dll"
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

# What other tests left, and the keys that many share and an unregistration leaves.
unregister
for key in CLSID Interface TypeLib; do wine reg add "HKCU\\Software\\Classes\\$key" /f >/dev/null; done
snapshot before

printf 'For the machine, twice\n'
register || fail "regsvr32 could not register."
register || fail "regsvr32 could not register again."
expect_registered "$classes"
expect 'HKCU\Software\Classes\Quorvel.Remark' '' ''
expect "$eventSource" EventMessageFile "$dll"
unregister || fail "regsvr32 could not unregister."
snapshot after
cmp before after || fail "Something is left in the registry."

printf 'Beside the other bitness, and with something foreign in a key of ours\n'
register
wine reg add "$classes\\$library\\409\\win32" /ve /d 'C:\Other\Quorvel.dll' /f >/dev/null
wine reg add "$classes\\Quorvel.Remark" /v Foreign /d kept /f >/dev/null
unregister || fail "regsvr32 could not unregister beside the other bitness."
expect "$classes\\$library\\409\\win64" '' ''
expect "$classes\\CLSID\\{8698FEEE-5589-45FA-8B93-90956F55C6A3}" '' ''
expect "$classes\\Quorvel.RemarkContext\\CLSID" '' '{8698FEEE-5589-45FA-8B93-90956F55C6A3}'
expect "$classes\\$library\\HELPDIR" '' 'C:\Other'
expect "$eventSource" EventMessageFile 'C:\Other\Quorvel.dll'
wine reg delete "$classes\\$library\\409\\win32" /f >/dev/null
unregister
expect "$classes\\Quorvel.Remark" Foreign kept
wine reg delete "$classes\\Quorvel.Remark" /f >/dev/null
snapshot after
cmp before after || fail "Something is left in the registry after the other bitness."

printf 'For a user who may not write for the machine\n'
denied='Software\Classes\Quorvel.RemarkContext'
wine "$(windows_path "$build/deny_writing.exe")" "$denied" || fail "The key could not be closed."
snapshot before
register || fail "regsvr32 could not register for the user."
expect_registered 'HKCU\Software\Classes'
snapshot denied
cmp before.1.reg denied.1.reg ||
  fail "What had been written for the machine before it was denied was not taken back."
! unregister || fail "regsvr32 says that it has unregistered what it may not."
snapshot after
cmp before after || fail "Something is left of the user's registration."
printf 'Everything as it should be\n'
