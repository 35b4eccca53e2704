#!/usr/bin/env bash
# Makes the Debian packages and compares their files and control fields with the expected ones.
# shellcheck source=tests/install/install-test.sh
. "$(dirname "${BASH_SOURCE[0]}")/install-test.sh"

# package NAME: its file.
package() { printf '%s\n' "$made/$1_${version}_$(dpkg --print-architecture).deb"; }

# files_of NAME: its files and links with their modes and owners, folders left out.
files_of() { dpkg-deb -c "$(package "$1")" | sed -nE 's/^([^d]\S+ +\S+) .* \.(\/.*)$/\1 \2/p' | LC_ALL=C sort -k3; }

# field NAME FIELD
field() { dpkg-deb -f "$(package "$1")" "$2"; }

# control_file NAME FILE
control_file() { dpkg-deb -I "$(package "$1")" "$2"; }

# documents NAME: how files_of lists the files that every package has.
documents() {
  printf -- '-rw-r--r-- root/root /usr/share/doc/%s/%s\n' "$1" changelog.gz "$1" copyright "$1" parts.json
}

# packages_needed NAME: the packages it depends on, without versions.
packages_needed() { field "$1" Depends | sed 's/ ([^)]*)//g; s/, /\n/g' | LC_ALL=C sort; }

# protections FILE: those that a program or library has, one a line, as a hardened build gives them.
protections() {
  local facts
  facts=$(readelf -hldW --dyn-syms "$1")
  awk '
    /^ *Type: +DYN/ { print "PIE" }
    /^ *GNU_RELRO / { print "RELRO" }
    /^ *GNU_STACK / && $7 == "RW" { print "stack without code" }
    /\(FLAGS(_1)?\).*NOW/ && !now++ { print "BIND_NOW" }
    / __stack_chk_fail(@|$)/ && !guarded++ { print "stack protector" }
    / __[a-z0-9_]+_chk(@|$)/ && !checked++ { print "FORTIFY" }' <<<"$facts" | LC_ALL=C sort
}

made=$scratch
rm -rf "$made"
mkdir -p "$made"
cpack --config "$build/CPackConfig.cmake" -B "$made" >"$made/log" 2>&1 || fail "$(cat "$made/log")"

major=${version%%.*}
library=libquorvel$major
windows=$library-windows
lib=/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
expect "The files of $library" "-rw-r--r-- root/root $lib/libquorvel-core.so.$version
lrwxrwxrwx root/root $lib/libquorvel.so.$major -> libquorvel.so.$version
-rw-r--r-- root/root $lib/libquorvel.so.$version
$(documents "$library")" "$(files_of "$library")"
expect "The files of $windows" "lrwxrwxrwx root/root $lib/libquorvel-windows.so.$major -> libquorvel-windows.so.$version
-rw-r--r-- root/root $lib/libquorvel-windows.so.$version
$(documents "$windows")" "$(files_of "$windows")"
expect "The files of libquorvel-dev" "$(LC_ALL=C sort -k3 <<<"-rw-r--r-- root/root /usr/include/quorvel/com.h
-rw-r--r-- root/root /usr/include/quorvel/quorvel.h
-rw-r--r-- root/root /usr/include/quorvel/quorvel.idl
-rw-r--r-- root/root $lib/cmake/Quorvel/QuorvelConfig.cmake
-rw-r--r-- root/root $lib/cmake/Quorvel/QuorvelConfigVersion.cmake
-rw-r--r-- root/root $lib/cmake/Quorvel/QuorvelTargets-BUILD.cmake
-rw-r--r-- root/root $lib/cmake/Quorvel/QuorvelTargets.cmake
lrwxrwxrwx root/root $lib/libquorvel.so -> libquorvel.so.$major
-rw-r--r-- root/root $lib/pkgconfig/quorvel.pc
$(documents libquorvel-dev)
-rw-r--r-- root/root /usr/share/doc/libquorvel-dev/examples/CMakeLists.txt
-rw-r--r-- root/root /usr/share/doc/libquorvel-dev/examples/remarks.cpp
-rw-r--r-- root/root /usr/share/doc/libquorvel-dev/host-guide.md")" \
  "$(files_of libquorvel-dev | sed -E 's/(QuorvelTargets-)[a-z]+\./\1BUILD./')"
expect "The files of quorvel" "-rwxr-xr-x root/root /usr/bin/quorvel
$(documents quorvel)" "$(files_of quorvel)"
expect "The files of quorvel-sample" "-rwxr-xr-x root/root /usr/bin/quorvel-sample
-rw-r--r-- root/root /usr/share/applications/quorvel-sample.desktop
$(documents quorvel-sample)
-rw-r--r-- root/root /usr/share/icons/hicolor/128x128/apps/quorvel.png
-rw-r--r-- root/root /usr/share/icons/hicolor/16x16/apps/quorvel.png
-rw-r--r-- root/root /usr/share/icons/hicolor/24x24/apps/quorvel.png
-rw-r--r-- root/root /usr/share/icons/hicolor/256x256/apps/quorvel.png
-rw-r--r-- root/root /usr/share/icons/hicolor/32x32/apps/quorvel.png
-rw-r--r-- root/root /usr/share/icons/hicolor/48x48/apps/quorvel.png
-rw-r--r-- root/root /usr/share/icons/hicolor/64x64/apps/quorvel.png
-rw-r--r-- root/root /usr/share/icons/hicolor/scalable/apps/quorvel.svg" "$(files_of quorvel-sample)"

# The links of the guide lead to files of the package.
for name in "$library" "$windows" libquorvel-dev quorvel quorvel-sample; do
  mkdir -p "$made/unpacked/$name"
  dpkg-deb -x "$(package "$name")" "$made/unpacked/$name"
done
unpacked=$made/unpacked/libquorvel-dev
documents=$unpacked/usr/share/doc/libquorvel-dev
while read -r link; do
  [[ $link == /* ]] && target=$unpacked$link || target=$documents/$link
  [[ -e $target ]] || fail "The guide of libquorvel-dev has a dead link: $link"
done < <(grep -oP '\]\(\K[^)#]+' "$documents/host-guide.md")

# These two packages must not need the toolkit: machines without a desktop use them.
expect "What $library depends on" "libc6
libfmt9
libgcc-s1
libodbc2
libsqlite3-0
libstdc++6" "$(packages_needed "$library")"
expect "What quorvel depends on" "libc6
libfmt9
libgcc-s1
$library
libstdc++6" "$(packages_needed quorvel)"
for name in "$windows" quorvel-sample; do
  for other in "$library" libwxgtk3.2-1; do
    packages_needed "$name" | grep -qx "$other" || fail "$name does not depend on $other."
  done
done
for name in "$windows" libquorvel-dev quorvel quorvel-sample; do
  field "$name" Depends | grep -qF "$library (= $version)" || fail "$name depends on another version of the library: $(field "$name" Depends)"
done
expect "What $library recommends" "tdsodbc, $windows" "$(field "$library" Recommends)"
expect "What quorvel recommends" tdsodbc "$(field quorvel Recommends)"
for name in "$library" quorvel; do
  dpkg-deb -I "$(package "$name")" postrm | sh -n || fail "The postrm of $name is not a shell script."
done
expect "What links the library depends on" "libquorvel $major $library (>= $version)" "$(control_file "$library" shlibs)"
for name in "$library" "$windows"; do
  expect "The triggers of $name" "activate-noawait ldconfig" "$(control_file "$name" triggers)"
  for script in postinst postrm; do
    if control_file "$name" "$script" | grep -v '^#' | grep ldconfig; then
      fail "$script of $name calls ldconfig in addition to its trigger."
    fi
  done
done

# A debugger sees more without.
if ! grep -q '^CMAKE_BUILD_TYPE:STRING=Debug$' "$build/CMakeCache.txt"; then
  programs=0
  while IFS= read -r -d '' file; do
    readelf -h "$file" >/dev/null 2>&1 || continue
    # libquorvel itself calls no function of the C library that FORTIFY has another form of.
    [[ $file == */libquorvel.so.* ]] || checks='
FORTIFY'
    expect "The protections of ${file##*/}" "BIND_NOW${checks:-}
PIE
RELRO
stack protector
stack without code" "$(protections "$file")"
    programs=$((programs + 1))
    checks=
  done < <(find "$made/unpacked" -type f -print0)
  expect "Programs and libraries in the packages" 5 "$programs"
fi

# has_parts NAME LIBRARY...: the list of the package's parts is complete and names these libraries.
has_parts() {
  local folder=$made/unpacked/$1 needed
  needed=$(printf '%s;' "${@:2}")
  cmake -D LIST="$folder/usr/share/doc/$1/parts.json" -D FOLDER="$folder" -D NEEDED="${needed%;}" \
    -P "$source_folder/tests/install/CheckPartsList.cmake" || fail "The list of the parts of $1 is wrong."
}
has_parts "$library" libfmt9 libodbc2 libsqlite3-0 libstdc++6
has_parts "$windows" "$library" libwxgtk3.2-1 libgtk-3-0
has_parts libquorvel-dev "$library"
has_parts quorvel "$library" CLI11 nlohmann-json
has_parts quorvel-sample "$windows" libsqlite3-0

# Everything that names a version names this one.
for name in "$library" "$windows" libquorvel-dev quorvel quorvel-sample; do
  expect "The version of $name" "$version" "$(field "$name" Version)"
  expect "The first heading in the change log of $name" "## $version" \
    "$(gzip -dc "$made/unpacked/$name/usr/share/doc/$name/changelog.gz" | sed -n 's/^\(## [^ ]*\) (.*/\1/p' | head -n 1)"
  expect "The version in the list of the parts of $name" "$version" \
    "$(sed -n '/"this package", "name"/s/.*"version": "\([^"]*\)".*/\1/p' "$made/unpacked/$name/usr/share/doc/$name/parts.json")"
done
expect "What quorvel says" "quorvel $version" \
  "$(LD_LIBRARY_PATH=$made/unpacked/$library$lib "$made/unpacked/quorvel/usr/bin/quorvel" --version)"
expect "The version for pkg-config" "Version: $version" "$(grep ^Version: "$unpacked$lib/pkgconfig/quorvel.pc")"
grep -q "^set(PACKAGE_VERSION \"$version\")" "$unpacked$lib/cmake/Quorvel/QuorvelConfigVersion.cmake" ||
  fail "find_package finds another version."

# Packing again gives the same bytes; scripts/reproducible compares two whole builds.
cpack --config "$build/CPackConfig.cmake" -B "$made/again" >"$made/log" 2>&1 || fail "$(cat "$made/log")"
for name in "$library" "$windows" libquorvel-dev quorvel quorvel-sample; do
  cmp "$(package "$name")" "$made/again/$(basename "$(package "$name")")" || fail "$name differs when it is packed again."
done
