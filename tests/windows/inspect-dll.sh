#!/usr/bin/env bash
# inspect-dll.sh <DLL> <version> <machine> <prefix of the tools>
#
# Checks the file from outside: it exports only the four entry points, undecorated, imports only libraries that every
# Windows has, has the address and data protections, and contains the version, the type library and the icon. <machine> is
# x64 or x86, <version> is like 5.0.1.
set -euo pipefail
export LC_ALL=C

dll=$1 version=$2 machine=$3 tools=$4
headers=$("$tools-objdump" -p "$dll")
failures=0

# expect WHAT WANTED GOT
expect() {
  [[ $2 == "$3" ]] && return
  printf '%s: expected\n%s\ngot\n%s\n' "$1" "$2" "$3" >&2
  failures=$((failures + 1))
}

expect "file format" "$([[ $machine == x64 ]] && echo pei-x86-64 || echo pei-i386)" \
  "$(sed -n 's/.*file format //p' <<<"$headers")"

expect exports 'DllCanUnloadNow
DllGetClassObject
DllRegisterServer
DllUnregisterServer' \
  "$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t\[ *[0-9]*\] \(.*\)/\1/p' <<<"$headers" | sort)"

system='advapi32 comctl32 comdlg32 gdi32 kernel32 msvcrt odbc32 ole32 oleacc oleaut32 rpcrt4 shell32 shlwapi user32
  uxtheme version winspool.drv'
foreign=
for import in $(sed -n 's/^\tDLL Name: //p' <<<"$headers" | tr '[:upper:]' '[:lower:]' | sed 's/\.dll$//'); do
  grep -qwF -- "$import" <<<"$system" || foreign+="$import "
done
expect "imports that not every Windows has" '' "$foreign"

for flag in DYNAMIC_BASE NX_COMPAT $([[ $machine == x64 ]] && echo HIGH_ENTROPY_VA || echo NO_SEH); do
  grep -q "^[[:space:]]*$flag$" <<<"$headers" || expect "protection" "$flag" none
done
symbols=$("$tools-nm" "$dll")
for function in __stack_chk_fail __chk_fail; do
  grep -q " T _\?$function$" <<<"$symbols" || expect "protection" "$function" none
done

resources=$("$tools-windres" -J coff -i "$dll" -O rc)
expect "type libraries" '1 "TYPELIB"' "$(grep TYPELIB <<<"$resources" | grep '^[0-9]')"
expect "manifest with the resource number for libraries" '2 24' "$(sed -n 's| /\* RT_MANIFEST \*/||p' <<<"$resources")"
# The first by name is the file's own; the toolkit brings others.
expect "icon of the file" '"QUORVEL"' "$(sed -n 's| 14 /\* RT_GROUP_ICON \*/||p' <<<"$resources" | head -n 1)"
expect "log messages" 1 "$(grep -c RT_MESSAGETABLE <<<"$resources")"
# One line applies to all resources after it.
expect "languages" 'LANGUAGE 9, 1' "$(grep '^LANGUAGE' <<<"$resources" | sort -u)"
expect "version" " FILEVERSION ${version//./, }, 0" "$(grep -o ' FILEVERSION.*' <<<"$resources")"
for text in 'FileDescription", "Quorvel remarks' "FileVersion\", \"$version.0" 'InternalName", "Quorvel' \
  'OriginalFilename", "Quorvel.dll' 'ProductName", "Quorvel'; do
  grep -qF "\"$text\"" <<<"$resources" || expect "text of the version" "$text" "$(grep 'VALUE "' <<<"$resources")"
done

exit $((failures > 0))
