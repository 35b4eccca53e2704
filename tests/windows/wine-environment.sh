# shellcheck shell=bash
# Sourced by the tests that run Windows programs. Set before: build (the build folder). Then `wine` runs programs on a
# machine of the build folder's own, which is made once; a script has it, and a screen nobody sees, for itself until it
# ends. The machine runs when this comes back.

# The lock is not handed on, or a program that a killed test left would keep it.
[[ -n ${QUORVEL_OWN_SCREEN:-} ]] ||
  QUORVEL_OWN_SCREEN=yes exec flock --close "$build/wine.lock" \
    "$(dirname "${BASH_SOURCE[0]}")/../../scripts/own-screen" bash "$0" "$@"

# Where a script ends by itself it says nothing; this does.
set -o errtrace
trap 'printf "%s:%s: status %s of: %s\n" "${BASH_SOURCE[0]}" "$LINENO" "$?" "$BASH_COMMAND" >&2' ERR

build=$(readlink -f "$build")
# Nothing else that Wine would ask for, say or leave on the desktop belongs to a test.
export WINEPREFIX=$build/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='

# A path of this machine as Windows programs see it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

end_wine() {
  wineserver -k || return 0
  timeout 30 wineserver -w || {
    printf 'Wine does not end; it is killed.\n' >&2
    wineserver -k9 || true
  }
}

# attempt COUNT WHAT COMMAND...: runs a command until it ends well, COUNT times at most, each with a Wine that has just
# started. What went wrong is told even where the next time went well.
attempt() {
  local count=$1 what=$2 number status
  for ((number = 1; number <= count; number++)); do
    status=0
    "${@:3}" >"$build/wine.log" 2>&1 || status=$?
    [[ $status -ne 0 ]] || return 0
    cat "$build/wine.log" >&2
    printf '%s: status %s, attempt %s of %s.\n' "$what" "$status" "$number" "$count" >&2
    end_wine
  done
  return 1
}

make_machine() {
  local new=$WINEPREFIX.new
  if [[ -d $new ]]; then WINEPREFIX=$new end_wine; fi
  rm -rf "$new"
  WINEPREFIX=$new timeout 200 wineboot --init && WINEPREFIX=$new end_wine && mv "$new" "$WINEPREFIX"
}

start_wine() { WINEDEBUG=fixme-all attempt 3 "Wine did not start" timeout 60 wine cmd /c exit; }

restart_wine() {
  end_wine
  start_wine
}

# surely PROGRAM [ARGUMENT...]: what is no part of the test and must have been done before it.
surely() { attempt 2 "$*" timeout 60 wine "$@"; }

# What a killed test left running would keep its screen, which is gone.
[[ ! -d $WINEPREFIX ]] || end_wine
[[ -d $WINEPREFIX ]] || attempt 2 "Wine could not make a machine in $WINEPREFIX" make_machine
trap end_wine EXIT
start_wine
