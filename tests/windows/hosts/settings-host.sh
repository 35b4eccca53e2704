#!/usr/bin/env bash
# settings-host.sh <build folder> <native quorvel>
#
# How the component reads the four settings from the registry, checked with a script and the system's registry tool: no
# settings, one of a wrong type, settings that cannot be written, and a path with blanks and non-ASCII letters.
set -euo pipefail

build=$1 cli=$2
scripts=$(dirname "$(readlink -f "$0")")
# shellcheck source=tests/windows/hosts/host-environment.sh
source "$(dirname "$(readlink -f "$0")")/host-environment.sh"
failures=0

# expect WHAT WANTED GOT
expect() {
  [[ $2 == "$3" ]] && return
  printf '%s: expected\n%s\ngot\n%s\n' "$1" "$2" "$3" >&2
  failures=$((failures + 1))
}

cd "$scripts"
noServer='server <>
load -2147467259 Quorvel.ODBC
No database server is set. Set the server to the name of a SQL Server, or to "(embedded)" and the database to the path'\
' of a database file.
remarks 0'

forget_settings
expect "without settings" "$noServer" "$(run_script ShowSettings.vbs)"
for value in Server Database UserId Password; do
  expect "$value as it was created" REG_SZ "$(show_setting "$value" | sed 's/ *$//')"
done

set_setting Server 5 REG_DWORD
set_setting UserId clerk
log=$build/hosts/event.log
# Wine has no event log, but it can print what a program writes to it.
expect "with a number for the server" "$noServer" \
  "$(WINEDEBUG=-all,warn+eventlog run_script ShowSettings.vbs 2>"$log")"
expect "the number replaced" REG_SZ "$(show_setting Server | sed 's/ *$//')"
expect "the others as they were" 'REG_SZ    clerk' "$(show_setting UserId)"
expect "the warnings" 'L"Warning: Converted registry value to string: \r\nSoftware\\Tarnwick\\Server"' \
  "$(sed -n 's/.*warn:eventlog:ReportEventW //p' "$log")"

# Until Wine is restarted the settings are read-only, and the component does not read settings that it cannot write.
wine "$build/deny_writing.exe" 'Software\Tarnwick'
expect "settings that cannot be written" 'load 110 GetRegStringValue
Could not read or create registry string value: Software\Tarnwick\Server
remarks 0' "$(run_script ShowSettings.vbs)"
restart_wine

make_database "$build/hosts/Bemerkungen für Größe & Söhne"
use_database "$databaseFolder/remarks.db"
expect "a path with letters and blanks" 'server <(embedded)>
load 0 

remarks 7' "$(run_script ShowSettings.vbs)"

exit $((failures > 0))
