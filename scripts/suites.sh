# shellcheck shell=bash
# Sourced by check: finds out which suites of tests something has changed for since they passed. What passed has a file in
# build/passed, whose name ends with a checksum of all that the suite depends on.

# suites PRESET: the labels of the build's tests. A suite has the name of its program, or of none.
suites() { ctest --test-dir "build/$1" --print-labels | sed -n 's/^  //p'; }

# checksums PRESET FILE...: a line for each thing that tests of the build run or read: programs and libraries, files of the
# repository, the given files, and packages. Sources of tests are in their programs. A plus begins the lines of files that matter
# only to tests of what was built: those that build, package or describe the product.
checksums() {
  find "build/$1" -type f \( -perm -u+x -o -name '*.so*' -o -name '*.dll' -o -name '*.tlb' \) \
    -not -path '*/CMakeFiles/*' -not -path '*/tests/install/*' -not -path '*/wine/*' -not -path '*/package*/*' -print0 |
    sort -z | xargs -0 sha256sum
  repository_files tests data include scripts/own-screen scripts/screen.sh ':!tests/*.cpp' ':!tests/*.h'
  repository_files scripts docs packaging pictures cmake host/example 'CMake*' CHANGELOG.md | sed 's/^/+/'
  [[ $# -eq 1 ]] || sha256sum "${@:2}"
  dpkg-query -W
  printf '%s\n' "${QUORVEL_TEST_SQLSERVER:-}"
}

# repository_files PATH...: a line with a checksum for each file below the paths.
repository_files() { git ls-files -co --exclude-standard -z -- "$@" | sort -z | xargs -0 sha256sum; }

# find_changed KIND PRESET CHECKSUMS SUITE...: sets `changed` to the suites for which something has changed since they passed as
# that kind: anything of the checksums but the programs of other suites and, for a suite with a program, the lines with a plus.
# Sets `stamps` to their files in build/passed, for mark_passed.
find_changed() {
  local kind=$1 preset=$2 sums=$3 suite stamp all
  all=$(suites "$preset")
  changed=()
  stamps=()
  for suite in "${@:4}"; do
    stamp=build/passed/$kind-$suite-$(awk -v folder="build/$preset/" -v own="$suite" -v suites="$all" \
      -v hasProgram="$([[ ! -x build/$preset/$suite ]] || printf 1)" '
      BEGIN { for (i = split(suites, name, "\n"); i > 0; --i) others[folder name[i]] = name[i] != own }
      !others[$2] && !(hasProgram && /^\+/)' <<<"$sums" | sha256sum | cut -c1-32)
    if [[ ! -e $stamp ]]; then
      changed+=("$suite")
      stamps+=("$stamp")
    fi
  done
  [[ ${#changed[@]} -gt 0 ]] || printf 'They passed before with the same programs, files and packages.\n'
}

# mark_passed KIND: what find_changed has found passes with what it depends on now.
mark_passed() {
  local suite
  mkdir -p build/passed
  for suite in "${changed[@]}"; do rm -f "build/passed/$1-$suite-"*; done
  touch "${stamps[@]}"
}
