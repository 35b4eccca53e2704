#!/usr/bin/env bash
# windows-host.sh <build folder> <native quorvel>
#
# A script host opens the windows and keys are pressed in them as a person would: through the remarks that pop up, and two
# new remarks in the editor. Pictures of the windows stay in <build folder>/pictures; the command line reads back what is in
# the database in the end.
set -euo pipefail

build=$1 cli=$2
here=$(dirname "$(readlink -f "$0")")
# shellcheck source=tests/windows/hosts/host-environment.sh
source "$here/host-environment.sh"

fail() {
  picture failure
  cat "$work/output" >&2
  printf '%s\nWhat the screen showed is in %s/failure.png.\n' "$*" "$pictures" >&2
  exit 1
}

# shellcheck source=scripts/screen.sh
source "$here/../../../scripts/screen.sh"

picture() { import -silent -window root "$pictures/$1.png"; }

# says LINE: waits until the host has said that.
says() {
  # It ends with the host.
  timeout 60 grep -q "^$1.\?\$" < <(trap - ERR; tail --lines=+1 --follow --pid="$host" "$work/output") ||
    fail "The host does not say \"$1\"."
}

work=$build/hosts/windows
pictures=$build/pictures
make_database "$work"
use_database "$work/remarks.db"
rm -rf "$pictures"
mkdir "$pictures"
# What blinks makes no two pictures alike.
surely reg add 'HKCU\Control Panel\Desktop' /f /v CursorBlinkRate /d -1
openbox >/dev/null 2>&1 &

timeout 250 wine cscript.exe //nologo "$(windows_path "$here/ShowWindows.vbs")" >"$work/output" 2>&1 &
host=$!
title='Acme Tools \[C1044\] Customer Remarks \[\(embedded\)\]'

appears "$title"
picture popup-first
press Return alt+n
picture popup-last
xdotool key Return
says 'popped up 3'

appears "$title"
picture editor
press alt+n
appears 'Choose Remark Type'
picture chooser
press Down Return
enter_text 'Gate code 4711'
picture editor-new
press alt+s
picture editor-saved
# What is typed and not saved when the window closes is no less kept.
press alt+n
appears 'Choose Remark Type'
press Return
enter_text 'Paid on Friday'
press alt+c
appears 'Edit Remarks'
picture question
xdotool key Return
says 'edited 8, unsaved False'
wait "$host"

for remark in 'Gate code 4711' 'Paid on Friday'; do
  native list --context CustMaint --owner C1044 --user admin | grep -qF "$remark" || fail "\"$remark\" is not in the database."
done
