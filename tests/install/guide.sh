#!/usr/bin/env bash
# Checks that the first listings of the guide are word for word the example that the other tests build.
# shellcheck source=tests/install/install-test.sh
. "$(dirname "${BASH_SOURCE[0]}")/install-test.sh"

# listing LANGUAGE: the guide's first block in that language.
listing() {
  awk -v language="$1" '
    $0 == "```" && inside { exit }
    inside { print }
    $0 == "```" language { inside = 1 }' "$source_folder/docs/host-guide.md"
}

expect "The host in the guide" "$(cat "$source_folder/host/example/remarks.cpp")" "$(listing cpp)"
expect "Its CMakeLists.txt in the guide" "$(cat "$source_folder/host/example/CMakeLists.txt")" "$(listing cmake)"
