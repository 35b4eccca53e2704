#!/usr/bin/env bash
# Installs each component into the scratch prefix, where the other tests use them, and compares the installed files with the
# expected ones.
# shellcheck source=tests/install/install-test.sh
. "$(dirname "${BASH_SOURCE[0]}")/install-test.sh"

# component NAME: installs it and prints the installed files.
component() {
  local before=$scratch/before
  mkdir -p "$prefix"
  files_below "$prefix" >"$before"
  cmake --install "$build" --prefix "$prefix" --component "$1" >"$scratch/install.log" || fail "$(cat "$scratch/install.log")"
  # Only packages have these.
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
expect "What runtime brings" "$lib/libquorvel-core.so.$version
$lib/libquorvel.so.${version%%.*}
$lib/libquorvel.so.$version" "$(component runtime)"
expect "What tools brings" "bin/quorvel" "$(component tools)"
"$prefix/bin/quorvel" --version >/dev/null || fail "The command line does not find its library."
expect "What windows brings" "$lib/libquorvel-windows.so.${version%%.*}
$lib/libquorvel-windows.so.$version" "$(component windows)"
expect "What sample brings" "bin/quorvel-sample
share/applications/quorvel-sample.desktop
share/icons/hicolor/128x128/apps/quorvel.png
share/icons/hicolor/16x16/apps/quorvel.png
share/icons/hicolor/24x24/apps/quorvel.png
share/icons/hicolor/256x256/apps/quorvel.png
share/icons/hicolor/32x32/apps/quorvel.png
share/icons/hicolor/48x48/apps/quorvel.png
share/icons/hicolor/64x64/apps/quorvel.png
share/icons/hicolor/scalable/apps/quorvel.svg" "$(component sample)"

everything=$(files_below "$prefix")
cmake --install "$build" --prefix "$scratch/everything" >"$scratch/install.log" || fail "$(cat "$scratch/install.log")"
expect "What an install without a component brings" "$everything" "$(files_below "$scratch/everything")"
rm -rf "$scratch/everything"

# named FIELD FILE: the values of that field in the file's dynamic section, one a line.
named() { readelf -dW "$2" | sed -n "s/.*($1).*\[\(.*\)\]/\1/p"; }

# needed FILE: the libraries it is linked with, without the compiler's.
needed() { named NEEDED "$1" | grep -vE '^(libc|libm|libgcc_s|libstdc\+\+|ld-linux.*)\.so\.[0-9]+$' | LC_ALL=C sort; }

library=$prefix/$lib/libquorvel.so
core=$prefix/$lib/libquorvel-core.so.$version
windows=$prefix/$lib/libquorvel-windows.so.${version%%.*}
expect "What the library exports" "DllCanUnloadNow
DllGetClassObject
QuorvelCreate" "$(nm -D --defined-only --format=just-symbols "$library" | LC_ALL=C sort)"
expect "The library's own name" "libquorvel.so.${version%%.*}" "$(named SONAME "$library")"
expect "What the library needs" "libfmt.so.9
libquorvel-core.so.$version" "$(needed "$library")"
expect "What the core needs: nothing of a desktop" "libfmt.so.9
libodbc.so.2
libsqlite3.so.0" "$(needed "$core")"
expect "The windows' own name" "libquorvel-windows.so.${version%%.*}" "$(named SONAME "$windows")"
needed "$windows" | grep -qx "libquorvel-core.so.$version" || fail "The library with the windows does not use the shared core."
if grep -rniE 'sqlite|odbc|fmt|quorvel-core|wx|gtk' "$prefix/include" "$prefix/$lib/cmake" "$prefix/$lib/pkgconfig"; then
  fail "The host is linked with libraries that only the component needs."
fi
for file in "$library" "$core" "$windows" "$prefix"/bin/*; do
  folder="\$ORIGIN"
  [[ $file != "$prefix"/bin/* ]] || folder="\$ORIGIN/../$lib:\$ORIGIN"
  expect "Where ${file##*/} looks for libraries first" "$folder" "$(named RUNPATH "$file")$(named RPATH "$file")"
done
