#!/bin/bash
# Runs bench_Program on a display and a session bus made here.
# Usage: program.sh BENCH_PROGRAM [OPTION OF GOOGLE BENCHMARK]...
set -eu
[ -n "${LUMEROOM_BENCH_BUS:-}" ] \
    || exec env LUMEROOM_BENCH_BUS=1 dbus-run-session -- "$0" "$@"
folder=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$folder"' EXIT
export XDG_CONFIG_HOME="$folder" TMPDIR="$folder" QT_QPA_PLATFORM=xcb
Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp 3>"$folder/display" >/dev/null 2>&1 &
while [ ! -s "$folder/display" ]; do sleep 0.1; done
DISPLAY=":$(cat "$folder/display")" "$@" --benchmark_enable_random_interleaving=true \
    --benchmark_display_aggregates_only=true 2>/dev/null
