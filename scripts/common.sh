# shellcheck shell=bash
# Sourced by demo and check: lists the packages they need, installs the missing ones, and builds.

# shellcheck disable=SC2034  # the sourcing scripts pick from the lists
BUILD_PACKAGES=(g++ cmake ninja-build ccache libsqlite3-dev unixodbc-dev libfmt-dev libcli11-dev nlohmann-json3-dev
  libwxgtk3.2-dev libgtk-3-dev
  libgtest-dev libgmock-dev libbenchmark-dev dpkg-dev file pkgconf librsvg2-bin imagemagick)
# shellcheck disable=SC2034
CHECK_PACKAGES=(git libsqliteodbc tdsodbc clang-format clang-tidy libclang-dev llvm-dev shellcheck
  clang libclang-rt-dev)
# shellcheck disable=SC2034
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools libwine-dev wine64 wine
  debootstrap faketime googletest tcl zip)
# For windows on an invisible display.
# shellcheck disable=SC2034
PICTURE_PACKAGES=(xvfb xauth openbox xdotool fonts-dejavu-core fonts-noto-color-emoji)

# step TEXT: prints the name of the next step.
step() { printf '\n== %s\n' "$*"; }

# fail TEXT: prints a sentence and ends the script.
fail() {
  printf '\n%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

is_installed() { [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

# ensure_packages PACKAGE...: installs the missing ones; uses no network when none is missing.
ensure_packages() {
  local package missing=() as_root=()
  command -v dpkg-query >/dev/null || fail "this needs Debian 12 or a distribution based on it: dpkg is not installed."
  for package in "$@"; do is_installed "$package" || missing+=("$package"); done
  if [[ ${#missing[@]} -eq 0 ]]; then
    printf 'All %d are installed.\n' $#
    return
  fi
  if [[ $(id -u) -ne 0 ]]; then
    { command -v sudo >/dev/null && sudo -v; } ||
      fail "these packages are missing, and only root can install them: ${missing[*]}"
    as_root=(sudo)
  fi
  printf 'Installing %s\n' "${missing[*]}"
  "${as_root[@]}" apt-get update -qq || fail "the package lists could not be fetched (apt-get update); see above."
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" ||
    fail "these packages could not be installed; see above: ${missing[*]}"
}

# build_preset PRESET [OPTION...]: configures the preset's folder once, then builds; the options go to cmake --build.
build_preset() {
  local preset=$1
  shift
  if [[ ! -f build/$preset/build.ninja ]]; then
    cmake --preset "$preset" || fail "the build could not be configured; see above."
  fi
  cmake --build --preset "$preset" "$@" || fail "the build failed; see above."
}
