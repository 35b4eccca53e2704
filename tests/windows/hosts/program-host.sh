#!/usr/bin/env bash
# program-host.sh <build folder> <native quorvel> <program>: runs a Windows program with the registered Quorvel.dll on a
# new sample database.
set -euo pipefail

build=$1 cli=$2 program=$3
# shellcheck source=tests/windows/hosts/host-environment.sh
source "$(dirname "$(readlink -f "$0")")/host-environment.sh"

make_database "$build/hosts/$(basename "$program")"
use_database "$databaseFolder/remarks.db"
timeout 250 wine "$program"
