# shellcheck shell=bash
# Sourced by check: finds out which suites of tests something has changed for since they passed. What passed has a file in
# build/passed, whose name ends with a checksum of all that the suite depends on.

# suites PRESET: the labels of the build's tests. A suite has the name of its program, or of none.
suites() { ctest --test-dir "build/$1" --print-labels | sed -n 's/^  //p'; }

# checksums PRESET FILE...: a line for each thing that tests of the build run or read: programs and libraries, files of the
# repository, the given files, and packages. Sources of tests are in their programs.
checksums() {
  find "build/$1" -type f \( -perm -u+x -o -name '*.so*' -o -name '*.dll' -o -name '*.tlb' \) \
    -not -path '*/CMakeFiles/*' -not -path '*/tests/install/*' -not -path '*/wine/*' -not -path '*/packages/*' -print0 |
    sort -z | xargs -0 sha256sum
  git ls-files -co --exclude-standard -z -- tests scripts data docs packaging pictures include cmake host/example 'CMake*' \
    CHANGELOG.md ':!tests/*.cpp' ':!tests/*.h' | sort -z | xargs -0 sha256sum
  [[ $# -eq 1 ]] || sha256sum "${@:2}"
  dpkg-query -W
  printf '%s\n' "${QUORVEL_TEST_SQLSERVER:-}"
}

# find_changed KIND PRESET CHECKSUMS SUITE...: sets `changed` to the suites for which something has changed since they passed as
# that kind: anything of the checksums but the programs of other suites.
find_changed() {
  local kind=$1 preset=$2 sums=$3 suite stamp all
  all=$(suites "$preset")
  changed=()
  stamps=()
  for suite in "${@:4}"; do
    stamp=build/passed/$kind-$suite-$(awk -v folder="build/$preset/" -v own="$suite" -v suites="$all" '
      BEGIN { for (i = split(suites, name, "\n"); i > 0; --i) others[folder name[i]] = name[i] != own }
      !others[$2]' <<<"$sums" | sha256sum | cut -c1-32)
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
