# shellcheck shell=bash
# Sourced by the tests that run Windows programs. The caller sets build (the build folder). Afterwards `wine` runs programs
# in the build folder's Wine prefix, which is created once and is running. A script has the prefix and an invisible screen
# to itself until it ends. `architecture` is x64 or x86.

build=$(readlink -f "$build")
repository=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../..")
architecture=x64
alone=()
if [[ $(objdump -f "$build/Quorvel.dll") == *pei-i386* ]]; then
  architecture=x86
  # Status 77 lets ctest skip the test.
  i386Root=$("$repository/scripts/i386-root" --where) || exit
  alone=(unshare --mount --pid --fork --kill-child --mount-proc)
fi

# --close: a program that survives a killed test must not keep the lock.
[[ -n ${QUORVEL_OWN_SCREEN:-} ]] ||
  QUORVEL_OWN_SCREEN=yes exec flock --close "$build/wine.lock" \
    "$repository/scripts/own-screen" "${alone[@]}" bash "$0" "$@"

# set -e ends a script without a message; this trap prints one.
set -o errtrace
trap 'printf "%s:%s: status %s of: %s (called from lines: %s)\n" "${BASH_SOURCE[0]}" "$LINENO" "$?" "$BASH_COMMAND" "${BASH_LINENO[*]}" >&2' ERR

# shellcheck source=tests/windows/i386-environment.sh
[[ $architecture == x64 ]] || source "$repository/tests/windows/i386-environment.sh"

# Wine must not offer downloads, print messages or create menu entries.
export WINEPREFIX=$build/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='

# windows_path PATH: a native path as Windows programs see it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

end_wine() {
  wineserver -k || return 0
  timeout 30 wineserver -w || {
    printf 'Wine does not end; it is killed.\n' >&2
    wineserver -k9 || true
  }
}

# attempt COUNT WHAT COMMAND...: runs a command until it succeeds, at most COUNT times, and restarts Wine after a failure.
# Prints failures even when a later attempt succeeds.
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

# Persistent, because Wine otherwise ends a second after its last program, and forgets what lasts until it ends.
start_server() { wineserver --persistent && timeout 60 wine cmd /c exit; }
start_wine() { WINEDEBUG=fixme-all attempt 3 "Wine did not start" start_server; }

restart_wine() {
  end_wine
  start_wine
}

# wine PROGRAM [ARGUMENT...]: now and then the loader of the C library fails an assertion while Wine ends, and the status is
# 127 whatever the program did. The program runs again then.
wine() {
  local status=0
  command wine "$@" || status=$?
  [[ $status -eq 127 ]] || return "$status"
  printf 'The loader failed while Wine ended; again: %s\n' "$*" >&2
  command wine "$@"
}

# surely PROGRAM [ARGUMENT...]: runs a step that is not tested but must succeed.
surely() { attempt 2 "$*" timeout 60 wine "$@"; }

# Programs that survived a killed test would use its screen, which no longer exists.
[[ ! -d $WINEPREFIX ]] || end_wine
[[ -d $WINEPREFIX ]] || attempt 2 "Wine could not make a machine in $WINEPREFIX" make_machine
trap end_wine EXIT
start_wine
