# shellcheck shell=bash
# Sourced by the tests that run Windows programs. Set before: build (the build folder). Then `wine` runs programs on a
# machine of the build folder's own, which is made once; a script has it, and a screen nobody sees, for itself until it
# ends.

# The lock is not handed on, or a program that a killed test left would keep it.
[[ -n ${QUORVEL_OWN_SCREEN:-} ]] ||
  QUORVEL_OWN_SCREEN=yes exec flock --close "$build/wine.lock" xvfb-run --auto-servernum bash "$0" "$@"

build=$(readlink -f "$build")
# Nothing else that Wine would ask for, say or leave on the desktop belongs to a test.
export WINEPREFIX=$build/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='

# A path of this machine as Windows programs see it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

end_wine() {
  wineserver -k || return 0
  wineserver -w
}

make_machine() {
  local new=$WINEPREFIX.new
  rm -rf "$new"
  if ! WINEPREFIX=$new wineboot --init >"$build/wine.log" 2>&1; then
    cat "$build/wine.log" >&2
    printf 'Wine could not make a machine in %s; see above.\n' "$WINEPREFIX" >&2
    exit 1
  fi
  WINEPREFIX=$new end_wine
  mv "$new" "$WINEPREFIX"
}

# What a killed test left running would keep its screen, which is gone.
[[ ! -d $WINEPREFIX ]] || end_wine
[[ -d $WINEPREFIX ]] || make_machine
trap end_wine EXIT
