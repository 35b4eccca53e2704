#!/usr/bin/env bash
# finish-package.sh DEB SECONDS PARTS
#
# Puts the list of its parts into a package that CPack has made, and packs it so that two builds of the same sources give the
# same bytes: CPack leaves files in the order in which the disk has them, with the times of this build. SECONDS is the time that
# all files get. PARTS has a line PACKAGE|NAME|VERSION|LICENSE|SUPPLIER|LINKED for each library that is compiled in.
set -euo pipefail
export LC_ALL=C
# shellcheck source=packaging/parts-list.sh
. "$(dirname "$(readlink -f "$0")")/../parts-list.sh"

package=$1 seconds=$2 parts=$3
content=$(mktemp -d)
trap 'rm -rf "$content"' EXIT

# licence_of SOURCE_PACKAGE: of the library; nothing when it is not known here.
licence_of() {
  case $1 in
    fmtlib) echo MIT ;;
    gcc-*) echo 'GPL-3.0-or-later WITH GCC-exception-3.1' ;;
    glibc | glib2.0 | unixodbc) echo LGPL-2.1-or-later ;;
    gtk+3.0 | pango1.0) echo LGPL-2.0-or-later ;;
    sqlite3) echo blessing ;;
    wxwidgets*) echo 'LGPL-2.0-or-later WITH WxWindows-exception-3.1' ;;
  esac
}

# shared_libraries: a line for each package that the package depends on, with the version that it was built with.
shared_libraries() {
  local name version source supplier own
  own=$(dpkg-deb -f "$package" Version)
  while read -r name; do
    if [[ $name == *quorvel* ]]; then
      printf '%s|%s||Quorvel developers|dynamic\n' "$name" "$own"
    else
      IFS='|' read -r version source supplier < \
        <(dpkg-query -W -f '${Version}|${source:Package}|${Maintainer}\n' "$name" | head -n 1)
      printf '%s|%s|%s|%s|dynamic\n' "$name" "$version" "$(licence_of "$source")" "${supplier% <*}"
    fi
  done < <(dpkg-deb -f "$package" Depends | sed 's/ *[(|][^,]*//g; s/, */\n/g')
}

dpkg-deb -x "$package" "$content"
chmod 755 "$content"
name=$(dpkg-deb -f "$package" Package)
list=$({ sed -n "s/^$name|//p" "$parts"; shared_libraries; } |
  parts_list "$name" "$(dpkg-deb -f "$package" Version)" "$seconds" "$content")
install -m 644 /dev/stdin "$content/usr/share/doc/$name/parts.json" <<<"$list"

cd "$content"
sums=$(find . -type f -printf '%P\0' | sort -z | xargs -0 md5sum)
size=$(find . -type f -printf '%s\n' | awk '{ sum += $1 } END { print int((sum + 1023) / 1024) }')
dpkg-deb -e "$package" DEBIAN
printf '%s\n' "$sums" >DEBIAN/md5sums
sed -i "s/^Installed-Size: .*/Installed-Size: $size/" DEBIAN/control
find . -exec touch -h -d "@$seconds" {} +
SOURCE_DATE_EPOCH=$seconds dpkg-deb --root-owner-group -Zgzip --build "$content" "$package" >/dev/null
