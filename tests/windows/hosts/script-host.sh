#!/usr/bin/env bash
# script-host.sh <build folder> <native quorvel> <server> <script> [<text>]
#
# Runs a script under Wine's script host with the registered Quorvel.dll, on a new sample database from the native command
# line. <server> is "(embedded)", or the program of the stand-in for a SQL Server, which the component reaches through ODBC.
# A <text> is passed to the script, which must store it in a remark of customer C1043; the command line reads it
# back.
set -euo pipefail

build=$1 cli=$2 server=$3 script=$4 text=${5-}
# shellcheck source=tests/windows/hosts/host-environment.sh
source "$(dirname "$(readlink -f "$0")")/host-environment.sh"

name=$(basename "$script")
work=$build/hosts/$name
make_database "$work"
# Statements that the script needs besides the sample.
[[ ! -e ${script%.*}.sql ]] || native run "${script%.*}.sql" >/dev/null
if [[ $server == '(embedded)' ]]; then
  use_database "$work/remarks.db"
else
  use_server "$server" "$work/remarks.db"
fi

# Wine's script hosts cannot include another file, so the checks are put in front of the script.
cat "$(dirname "$script")/Checks.${name##*.}" "$script" >"$work/$name"
cd "$work"
run_script "$name" ${text:+"$text"} | tee output

# Wine's host ends with 0 when a script stops early; only a complete one prints its number of checks.
tail -n 1 output | grep -q '^[1-9][0-9]* checks, 0 failed$' || {
  echo "$name: stopped early or failed" >&2
  exit 1
}
if [[ -n $text ]] && ! native list --context CustMaint --owner C1043 --user admin | grep -qF -- "$text"; then
  echo "$name: the text is not in the database: $text" >&2
  exit 1
fi
