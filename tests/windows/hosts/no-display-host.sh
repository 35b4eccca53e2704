#!/usr/bin/env bash
# no-display-host.sh <build folder> <native quorvel>
#
# Opens windows from a script host that has no display: each call is an error, the host lives, and so do unsaved remarks.
set -euo pipefail

build=$1 cli=$2
here=$(dirname "$(readlink -f "$0")")
# shellcheck source=tests/windows/hosts/host-environment.sh
source "$here/host-environment.sh"

make_database "$build/hosts/no-display"
use_database "$databaseFolder/remarks.db"
refused='-1 No window can be opened: the system makes no window for the program'
said=$(unset DISPLAY && cd "$here" && run_script NoDisplay.vbs)
[[ $said == "$refused
$refused
0, unsaved False" ]] || {
  printf 'The host says:\n%s\n' "$said" >&2
  exit 1
}
native list --context CustMaint --owner C1044 --user jsmith | grep -qF 'Moves in May.'
