# shellcheck shell=bash
# Sourced by the tests that run hosts under Wine. Provides databases from the native command line and settings in Wine's
# registry, and registers the component until the test ends. The caller sets build (the build folder) and cli (the native
# command line).

# shellcheck source=tests/windows/wine-environment.sh
source "$(dirname "${BASH_SOURCE[0]}")/../wine-environment.sh"

# In other locales Wine does not accept every character in an argument.
export LC_ALL=C.UTF-8
mkdir -p "$build/hosts"

settingsKey='HKLM\Software\Tarnwick'
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

# use_database FILE: makes the component open this database.
use_database() {
  forget_settings
  set_setting Server '(embedded)'
  set_setting Database "$(windows_path "$1")"
  set_setting UserId ''
  set_setting Password ''
}

run_script() { timeout 120 wine cscript.exe //nologo "$@" | tr -d '\r'; }

leave_no_trace() {
  wine regsvr32 /s /u "$component" || true
  forget_settings
  end_wine
}
trap leave_no_trace EXIT
surely regsvr32 /s "$component"
