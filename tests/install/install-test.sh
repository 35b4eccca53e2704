# shellcheck shell=bash
# Sourced by the scripts beside it, which all begin with the same arguments:
#   SCRIPT SOURCE_FOLDER BUILD_FOLDER SCRATCH_FOLDER VERSION
set -euo pipefail

# shellcheck disable=SC2034  # the sourcing scripts use them
source_folder=$1 build=$2 scratch=$3 version=$4
# shellcheck disable=SC2034
prefix=$scratch/prefix

fail() {
  printf '%s\n' "$*" >&2
  exit 1
}

# expect WHAT EXPECTED ACTUAL: ends the test with the difference of the two texts.
expect() {
  [[ $2 == "$3" ]] || fail "$1 differs:
$(diff -u --label expected --label actual <(printf '%s\n' "$2") <(printf '%s\n' "$3") || true)"
}

# files_below FOLDER: every file and link there, sorted, one a line.
files_below() { (cd "$1" && find . ! -type d -printf '%P\n' | LC_ALL=C sort); }

# library_folder PREFIX: where below a prefix the libraries are.
library_folder() {
  local file
  file=$(cd "$1" && find . -name libquorvel.so -printf '%P\n')
  printf '%s\n' "${file%/libquorvel.so}"
}
