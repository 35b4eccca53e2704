# shellcheck shell=bash
# Sourced by wine-environment.sh for the 32-bit build. Afterwards the programs of Wine run in the 32-bit system i386Root,
# which has the folders of the test at their own paths. The script is in namespaces of its own (scripts/i386-root), so the
# mounts and all programs end with it.

# It is the first process there, and for that one a signal without a trap does nothing.
trap 'exit 130' INT TERM

enter_i386() {
  local folder program
  mount --bind /proc "${i386Root:?}/proc"
  for folder in /tmp "${TMPDIR:-/tmp}" "${repository:?}" "${build:?}"; do
    mkdir -p "$i386Root$folder"
    mount --bind "$folder" "$i386Root$folder"
  done
  mkdir -p "$build/i386"
  for program in wine wineboot wineserver; do ln -sf "$repository/tests/windows/in-i386.sh" "$build/i386/$program"; done
  export QUORVEL_I386_ROOT=$i386Root WINEARCH=win32 PATH=$build/i386:$PATH
}
enter_i386
