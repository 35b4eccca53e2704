#!/usr/bin/env bash
# Builds the example against the installed prefix, with CMake and with pkg-config, and again once the prefix has moved; the
# programs then list a sample database that the installed command line has made.
# shellcheck source=tests/install/install-test.sh
. "$(dirname "${BASH_SOURCE[0]}")/install-test.sh"

warnings='-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Werror'

# with_cmake PREFIX FOLDER: leaves FOLDER/remarks.
with_cmake() {
  cmake -S "$source_folder/host/example" -B "$2" -G Ninja -DCMAKE_PREFIX_PATH="$1" -DCMAKE_CXX_FLAGS="$warnings" &&
    cmake --build "$2"
}

# with_cmake_3_16 PREFIX FOLDER: the same, with the parts of the package that an older CMake reads.
with_cmake_3_16() {
  local older=$scratch/older.cmake
  printf 'set(CMAKE_VERSION 3.16.0)\n' >"$older"
  cmake -S "$source_folder/host/example" -B "$2" -G Ninja -DCMAKE_PREFIX_PATH="$1" -DCMAKE_CXX_FLAGS="$warnings" \
    -DCMAKE_PROJECT_INCLUDE="$older" && cmake --build "$2"
}

# with_pkg_config PREFIX FOLDER: the same.
with_pkg_config() {
  local flags
  flags=$(PKG_CONFIG_PATH=$1/$(library_folder "$1")/pkgconfig pkg-config --cflags --libs "quorvel = $version") || return
  mkdir -p "$2"
  # pkg-config quotes its folders for a shell.
  eval "c++ -std=c++17 $warnings \"\$source_folder/host/example/remarks.cpp\" -o \"\$2/remarks\" $flags"
}

# check_consumer BUILDER PREFIX: builds the example and compares what it prints with the database.
check_consumer() {
  local folder=$scratch/$1
  rm -rf "$folder"
  "$1" "$2" "$folder" >"$folder.log" 2>&1 || fail "$(cat "$folder.log")"
  LD_LIBRARY_PATH=$2/$(library_folder "$2")
  export LD_LIBRARY_PATH
  expect "What the example built $1 prints" "$remarks" "$("$folder/remarks" 2>&1)"
  expect "What it says without settings" "$settings_error" "$(QUORVEL_REGISTRY=$scratch "$folder/remarks" 2>&1)"
}

# check_refused VERSION: find_package must refuse this version for a host that needs the given one.
check_refused() {
  mkdir -p "$scratch/refused"
  cp "$source_folder/host/example/remarks.cpp" "$scratch/refused"
  sed "s/find_package.*/find_package(Quorvel $1 REQUIRED)/" "$source_folder/host/example/CMakeLists.txt" >"$scratch/refused/CMakeLists.txt"
  if cmake -S "$scratch/refused" -B "$scratch/refused/build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >"$scratch/refused.log" 2>&1; then
    fail "find_package accepts this version for a host of version $1."
  fi
  grep -q "compatible with requested version" "$scratch/refused.log" || fail "$(cat "$scratch/refused.log")"
}

remarks='Collections: Dana promised payment of 48817 and 48902 by Friday. Call Monday morning if nothing has posted.
Collections: Invoice 48817 is 45 days past due. Dana says it was never approved; sent the signed packing slip again.
Credit: Credit limit raised from 15,000 to 25,000 after the year-end review. Review again in June.
General: Grüße von Dana 🔧
General: Wants the spring catalogue as soon as it is out: two printed copies, one for each counter.
General: New accounts payable contact: Dana Whitlock, ext. 214. Invoices by e-mail only.
General: Receiving closes at 3 pm. Call the dock, not the front desk, for delivery appointments.'
settings_error='error 0x800a006e: Could not read or create registry string value: Software\Tarnwick\Server'

export LC_ALL=C.UTF-8 QUORVEL_REGISTRY=$scratch/settings.reg
quorvel=$prefix/bin/quorvel
{
  "$quorvel" settings 'Server=(embedded)' "Database=$scratch/sample.db"
  "$quorvel" init --sample
  "$quorvel" add --context CustMaint --owner C1044 --user jsmith --type Cust.General --text 'Grüße von Dana 🔧'
} >"$scratch/sample.log" 2>&1 || fail "$(cat "$scratch/sample.log")"

check_consumer with_cmake "$prefix"
check_consumer with_cmake_3_16 "$prefix"
check_consumer with_pkg_config "$prefix"
check_refused 4
check_refused 6

moved="$scratch/moved here"
rm -rf "$moved"
mv "$prefix" "$moved"
check_consumer with_cmake "$moved"
check_consumer with_pkg_config "$moved"

# The library with the windows is found at the new place; only a display is missing.
said=$(env -u DISPLAY -u WAYLAND_DISPLAY "$moved/bin/quorvel" popup --window --context CustMaint --owner C1044 --user jsmith 2>&1) || true
[[ $said == *"DISPLAY is not set" ]] || fail "Without a display the windows say: $said"
