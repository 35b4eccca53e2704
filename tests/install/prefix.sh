#!/usr/bin/env bash
# Installs each component into the scratch prefix, where the other tests use them, and holds what came against what should.
# shellcheck source=tests/install/install-test.sh
. "$(dirname "${BASH_SOURCE[0]}")/install-test.sh"

# component NAME: installs it; prints which files it brought.
component() {
  local before=$scratch/before
  mkdir -p "$prefix"
  files_below "$prefix" >"$before"
  cmake --install "$build" --prefix "$prefix" --component "$1" >"$scratch/install.log" || fail "$(cat "$scratch/install.log")"
  # What only packages have.
  rm -rf "$prefix/share/doc"
  files_below "$prefix" | LC_ALL=C comm -13 "$before" -
}

rm -rf "$scratch"
mkdir -p "$scratch"
development=$(component development)
lib=$(library_folder "$prefix")
expect "What development brings" "include/quorvel/com.h
include/quorvel/quorvel.h
include/quorvel/quorvel.idl
$lib/cmake/Quorvel/QuorvelConfig.cmake
$lib/cmake/Quorvel/QuorvelConfigVersion.cmake
$lib/cmake/Quorvel/QuorvelTargets-BUILD.cmake
$lib/cmake/Quorvel/QuorvelTargets.cmake
$lib/libquorvel.so
$lib/pkgconfig/quorvel.pc" "$(sed -E 's/(QuorvelTargets-)[a-z]+\./\1BUILD./' <<<"$development")"
expect "What runtime brings" "$lib/libquorvel.so.${version%%.*}
$lib/libquorvel.so.$version" "$(component runtime)"
expect "What tools brings" "bin/quorvel" "$(component tools)"

everything=$(files_below "$prefix")
cmake --install "$build" --prefix "$scratch/everything" >"$scratch/install.log" || fail "$(cat "$scratch/install.log")"
expect "What an install without a component brings" "$everything" "$(files_below "$scratch/everything")"
rm -rf "$scratch/everything"

library=$prefix/$lib/libquorvel.so
expect "What the library exports" "DllCanUnloadNow
DllGetClassObject
QuorvelCreate" "$(nm -D --defined-only --format=just-symbols "$library" | LC_ALL=C sort)"
dynamic=$(readelf -dW "$library")
expect "The library's own name" "libquorvel.so.${version%%.*}" "$(sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p' <<<"$dynamic")"
expect "What the library needs beside the compiler's own" "libfmt.so.9
libodbc.so.2
libsqlite3.so.0" "$(sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' <<<"$dynamic" |
  grep -vE '^(libc|libm|libgcc_s|libstdc\+\+|ld-linux.*)\.so\.[0-9]+$' | LC_ALL=C sort)"
if grep -rniE 'sqlite|odbc|fmt' "$prefix/include" "$prefix/$lib/cmake" "$prefix/$lib/pkgconfig"; then
  fail "A host would need what only the library needs."
fi
if readelf -dW "$library" "$prefix/bin/quorvel" | grep -E '\((RUNPATH|RPATH)\)'; then
  fail "A folder of the build machine is in what was installed."
fi
