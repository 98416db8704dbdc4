#!/bin/bash
# The demonstration as a screen reader and a keyboard meet it, on a display and buses made here.
# Usage: accessibility.sh LUMEROOM LUMEROOMCTL
set -eu
skip() {
    echo "skipped: $*"
    exit 77
}
for command in Xvfb xdotool dbus-run-session; do
    command -v "$command" >/dev/null || skip "there is no $command"
done
# A python3 of the user's own may come first.
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || skip "there is no python3-pyatspi"
[ -e /usr/share/dbus-1/services/org.a11y.Bus.service ] || skip "there is no at-spi2-core"
[ "${3:-}" = inside ] || exec dbus-run-session -- "$0" "$1" "$2" inside

folder=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait; rm -rf "$folder"' EXIT
export XDG_CONFIG_HOME="$folder/config" XDG_RUNTIME_DIR="$folder" LC_ALL=C.UTF-8
Xvfb -displayfd 3 -screen 0 1400x900x24 -nolisten tcp 3>"$folder/display" >/dev/null 2>&1 &
for ((i = 0; i < 100; i++)); do
    [ ! -s "$folder/display" ] || break
    sleep 0.1
done
DISPLAY=":$(cat "$folder/display")"
export DISPLAY QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

"$1" --demo 2>/dev/null &
/usr/bin/python3 "$(dirname "$0")/accessibility.py" "$2"
