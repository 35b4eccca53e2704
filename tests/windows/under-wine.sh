#!/usr/bin/env bash
# under-wine.sh <build folder> <program> [<argument>...]: runs one Windows program.
set -euo pipefail

build=$1
# shellcheck source=tests/windows/wine-environment.sh
source "$(dirname "$(readlink -f "$0")")/wine-environment.sh"
wine "${@:2}"
