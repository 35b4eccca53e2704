# shellcheck shell=bash
# Sourced by check: names its steps and measures how long each one takes.

step_times=()
current_step=

# measure_cpu: sets cpu_seconds to the processor time, user and system, of all finished commands of this script. The
# builtin must not run in a subshell, which has a clock of its own.
measure_cpu() {
  mkdir -p build
  times >build/times
  cpu_seconds=$(awk 'NR == 2 { gsub(/[ms]/, " "); split($0, n, " "); printf "%d", n[1] * 60 + n[2] + n[3] * 60 + n[4] }' build/times)
}

# timed_step TEXT: ends the current step and prints the name of the next one.
timed_step() {
  measure_cpu
  if [[ -n $current_step ]]; then
    step_times+=("$(printf '%5.1f %5.1f  %s' "$(minutes $((SECONDS - step_start)))" "$(minutes $((cpu_seconds - step_cpu)))" "$current_step")")
  fi
  current_step=$1
  step_start=$SECONDS
  step_cpu=$cpu_seconds
  step "$1"
}

minutes() { awk -v seconds="$1" 'BEGIN { printf "%.1f", seconds / 60 }'; }

# print_step_times: one line a step, and the sum.
print_step_times() {
  measure_cpu
  printf '%5s %5s  minutes, and minutes of processor time\n' real cpu
  printf '%s\n' "${step_times[@]}"
  printf '%5.1f %5.1f  together\n' "$(minutes "$SECONDS")" "$(minutes "$cpu_seconds")"
}
