# shellcheck shell=bash
# Sourced by scripts that work in windows with keys as a person does, on an invisible display. The script sets `work` (a
# folder for temporary files) and defines `fail TEXT` first. `shown` is the checksum of the screen's current picture.

screen() { import -silent -window root "${work:?}/screen.ppm"; }

# settled: waits until the screen has stopped changing and prints the checksum of its picture.
settled() {
  local last='' now same=0 try
  for try in {1..100}; do
    screen
    now=$(md5sum <"${work:?}/screen.ppm")
    if [[ $now == "$last" ]]; then same=$((same + 1)); else same=0; fi
    [[ $same -lt 2 ]] || break
    last=$now
    sleep 0.1
  done
  [[ $try -lt 100 ]] || fail "the screen never comes to rest."
  printf '%s' "$now"
}

# appears TITLE: waits until there is a window with that in its title.
appears() {
  until timeout 60 xdotool search --sync --onlyvisible --name "$1" >/dev/null 2>"$work/xdotool"; do
    # xdotool ends with an error when a window closes while it looks at it.
    grep -q BadWindow "$work/xdotool" || fail "no window \"$1\" comes up. $(cat "$work/xdotool")"
  done
  shown=$(settled)
}

# press KEY...: each key must change the picture.
press() {
  local key before try
  for key in "$@"; do
    before=$shown
    xdotool key --clearmodifiers "$key"
    for try in {1..50}; do
      shown=$(settled)
      [[ $shown == "$before" ]] || break
    done
    [[ $try -lt 50 ]] || fail "the key $key changes nothing on the screen."
  done
}

enter_text() {
  xdotool type --delay 5 "$1"
  shown=$(settled)
}
