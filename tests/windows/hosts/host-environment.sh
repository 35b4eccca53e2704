# shellcheck shell=bash
# Sourced by the tests that run hosts under Wine. Registers the component, and provides databases from the native command
# line and settings in Wine's registry. Registration and settings stay behind: each test makes its own. The caller sets build
# (the build folder) and cli (the native command line).

# shellcheck source=tests/windows/wine-environment.sh
source "$(dirname "${BASH_SOURCE[0]}")/../wine-environment.sh"

# In other locales Wine does not accept every character in an argument.
export LC_ALL=C.UTF-8
mkdir -p "$build/hosts"

settingsKey='HKEY_LOCAL_MACHINE\Software\Tarnwick'
component=$(windows_path "$build/Quorvel.dll")

native() { QUORVEL_REGISTRY=$databaseFolder/settings.reg "${cli:?}" "$@"; }

# make_database FOLDER: creates a sample database in a new folder, which `native` uses too.
make_database() {
  databaseFolder=$1
  rm -rf "$databaseFolder"
  mkdir -p "$databaseFolder"
  native settings 'Server=(embedded)' "Database=$databaseFolder/remarks.db" >/dev/null
  native init --sample >/dev/null
}

forget_settings() { wine reg delete "$settingsKey" /f >/dev/null 2>&1 || true; }
# set_setting NAME TEXT [TYPE]
set_setting() { surely reg add "$settingsKey" /f /v "$1" /t "${3-REG_SZ}" /d "$2"; }
# The type of a value, and the value.
show_setting() { wine reg query "$settingsKey" /v "$1" | tr -d '\r' | sed -n "s/^ *$1  *//p"; }

# use_settings SERVER DATABASE USER PASSWORD: all four in one step of Wine.
use_settings() {
  local names=(Server Database UserId Password) name value
  {
    printf 'Windows Registry Editor Version 5.00\r\n\r\n[-%s]\r\n\r\n[%s]\r\n' "$settingsKey" "$settingsKey"
    for name in "${names[@]}"; do
      value=${1//\\/\\\\}
      printf '"%s"="%s"\r\n' "$name" "${value//\"/\\\"}"
      shift
    done
  } | iconv -t UTF-16 >"$build/hosts/settings.reg"
  surely reg import "$(windows_path "$build/hosts/settings.reg")"
}

# use_database FILE: makes the component open this database.
use_database() { use_settings '(embedded)' "$(windows_path "$1")" '' ''; }

# use_server STAND_IN FILE: starts the stand-in for a SQL Server with this database, and makes the component connect to it.
use_server() {
  local address user password
  # It ends with its standard input, so with this script.
  coproc standIn { exec "$1" "$2"; }
  { read -r -t 60 address && read -r -t 60 user && read -r -t 60 password; } <&"${standIn[0]}"
  use_settings "$address" Ledger "$user" "\"$password\""
}

run_script() { timeout 120 wine cscript.exe //nologo "$@" | tr -d '\r'; }

surely regsvr32 /s "$component"
