#!/usr/bin/env bash
# script-host.sh <build folder> <native quorvel> <script> [<text>]
#
# Runs a script under Wine's script host as a user of the registered Quorvel.dll, on a sample database of its own that the
# native command line makes. A text is handed to the script, which must leave it in a remark of customer C1043; the
# command line reads it back.
set -euo pipefail

build=$1 cli=$2 script=$3 text=${4-}
# shellcheck source=tests/windows/hosts/host-environment.sh
source "$(dirname "$(readlink -f "$0")")/host-environment.sh"

name=$(basename "$script")
work=$build/hosts/$name
make_database "$work"
# A script's own statements, for what no sample has.
[[ ! -e ${script%.*}.sql ]] || native run "${script%.*}.sql" >/dev/null
use_database "$work/remarks.db"

# Wine's script hosts include no other file, so the checks stand in front of the script.
cat "$(dirname "$script")/Checks.${name##*.}" "$script" >"$work/$name"
cd "$work"
run_script "$name" ${text:+"$text"} | tee output

# Wine's host ends with 0 when a script breaks off; only a whole one tells its number of checks.
tail -n 1 output | grep -q '^[1-9][0-9]* checks, 0 failed$' || {
  echo "$name: broke off or failed" >&2
  exit 1
}
if [[ -n $text ]] && ! native list --context CustMaint --owner C1043 --user admin | grep -qF -- "$text"; then
  echo "$name: the text is not in the database: $text" >&2
  exit 1
fi
