# shellcheck shell=bash
# Sourced by the scripts that finish packages: lists what a package consists of and what is linked into its files, so that
# others can find out whether a fault of a library concerns it. The form is CycloneDX 1.4, in JSON.

# json TEXT: the text as a JSON string.
json() {
  local text=${1//\\/\\\\}
  printf '"%s"' "${text//\"/\\\"}"
}

# files_of_list FOLDER: an object for each file below it, with its checksum.
files_of_list() {
  local file sum
  while IFS= read -r file; do
    sum=$(sha256sum <"$1/$file")
    printf '{"type": "file", "name": %s, "hashes": [{"alg": "SHA-256", "content": "%s"}]}\n' "$(json "$file")" "${sum%% *}"
  done < <(cd "$1" && find . -type f -printf '%P\n' | LC_ALL=C sort)
}

# libraries_of_list: an object for each line NAME|VERSION|LICENSE|SUPPLIER|LINKED of the input. LINKED is static, headers or
# dynamic. A licence that is not known is left out.
libraries_of_list() {
  local name version licence supplier linked
  while IFS='|' read -r name version licence supplier linked; do
    printf '{"type": "library", "bom-ref": %s, "name": %s, "version": %s, "supplier": {"name": %s}, ' \
      "$(json "$name")" "$(json "$name")" "$(json "$version")" "$(json "$supplier")"
    [[ -z $licence ]] || printf '"licenses": [{"expression": %s}], ' "$(json "$licence")"
    printf '"properties": [{"name": "linked", "value": %s}]}\n' "$(json "$linked")"
  done
}

# parts_list NAME VERSION SECONDS FOLDER: prints the list of the package NAME, which has the files of the folder and was
# released at that time; the input has the lines that libraries_of_list describes.
parts_list() {
  local libraries names
  libraries=$(cat)
  names=$(while IFS='|' read -r name _; do json "$name" && printf '\n'; done <<<"$libraries")
  cat <<JSON
{
  "bomFormat": "CycloneDX",
  "specVersion": "1.4",
  "version": 1,
  "metadata": {
    "timestamp": "$(date -u -d "@$3" +%Y-%m-%dT%H:%M:%SZ)",
    "component": {"type": "application", "bom-ref": "this package", "name": $(json "$1"), "version": $(json "$2"), "supplier": {"name": "Quorvel developers"}}
  },
  "components": [
$({ files_of_list "$4"; libraries_of_list <<<"$libraries"; } | sed 's/^/    /; $! s/$/,/')
  ],
  "dependencies": [
    {"ref": "this package", "dependsOn": [$(paste -sd, <<<"$names")]}
  ]
}
JSON
}
