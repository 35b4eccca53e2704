#!/usr/bin/env bash
# windows-host.sh <build folder> <native quorvel>
#
# Opens the windows from a script host and presses keys in them as a person would: first through the remarks that pop up,
# then for two new remarks in the editor. Keeps pictures of the windows in
# <build folder>/hosts/windows/pictures. The command line reads the result from the database.
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

# says LINE: waits until the host has printed that line.
says() {
  # tail ends with the host.
  timeout 60 grep -q "^$1.\?\$" < <(trap - ERR; tail --lines=+1 --follow --pid="$host" "$work/output") ||
    fail "The host does not say \"$1\"."
}

work=$build/hosts/windows
pictures=$work/pictures
make_database "$work"
use_database "$work/remarks.db"
mkdir "$pictures"
# A blinking cursor would make pictures differ.
surely reg add 'HKCU\Control Panel\Desktop' /f /v CursorBlinkRate /d -1
openbox >/dev/null 2>&1 &

timeout 250 wine cscript.exe //nologo "$(windows_path "$here/ShowWindows.vbs")" >"$work/output" 2>&1 &
host=$!
title='Acme Tools \[C1044\] Customer Remarks \[\(embedded\)\]'

appears "$title"
picture popup-first
press alt+n alt+n
picture popup-last
xdotool key alt+f
says 'popped up 3'

appears "$title"
picture editor
press alt+n
appears 'Choose Remark Type'
picture chooser
press Down Return
# Undo goes back by words; a line break is two characters in the system's text box, and a replaced selection is one step.
enter_text $'Gate code 4711\nby the old door'
press ctrl+z ctrl+z ctrl+y shift+Home
enter_text 'in'
press ctrl+z
picture editor-new
press ctrl+Return
picture editor-saved
# The text of before is another one than the saved one, so that the next New saves it too.
press ctrl+z
# Text that is not saved when the window closes must be kept too.
press alt+n
appears 'Choose Remark Type'
press Return
enter_text 'Paid on Friday'
press alt+c
appears 'Edit Remarks'
picture question
xdotool key Return
says 'edited 8, unsaved False'

appears 'Manage Security and Remarks'
picture manage-users
# A user's first name, written when the view changes; then a right for a group, found by typing.
press alt+f
xdotool key Home
enter_text 'Joanna '
press ctrl+2 alt+k
picture manage-groups
press alt+o
enter_text 'cred'
press alt+a alt+r
picture manage-rights
xdotool key Escape
says 'managed'
wait "$host"

native run - >"$work/rights" <<<"SELECT FirstName FROM ttwUser WHERE UserID = 'admin';
GO
SELECT r.CanRead, r.CanCreate FROM ttwRemarkRight r INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = r.RemarkTypeKey
WHERE t.RemarkTypeID = 'Cust.Credit' AND r.GroupKey = 1;"
grep -q '^Joanna Anna' "$work/rights" || fail "The first name is not in the database."
grep -Eq '^ *1 +0$' "$work/rights" || fail "The right is not in the database."
native list --context CustMaint --owner C1044 --user admin >"$work/list"
for remark in 'Gate code 4711$' 'by the *$' 'Paid on Friday'; do
  grep -q "$remark" "$work/list" || fail "\"$remark\" is not in the database."
done
