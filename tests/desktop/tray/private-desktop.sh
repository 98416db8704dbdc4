#!/bin/bash
# Runs a program on a display and a session bus of its own. Usage: private-desktop.sh PROGRAM [ARGUMENT ...]
set -eu
for needed in Xvfb dbus-run-session; do
    if ! command -v "$needed" >/dev/null; then
        echo "skipped: there is no $needed"
        exit 77
    fi
done
announce=$(mktemp -u)
mkfifo "$announce"
exec 3<>"$announce"
rm "$announce"
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp >/dev/null 2>&1 &
server=$!
trap 'kill $server' EXIT
read -r -t 20 number <&3
DISPLAY=":$number" dbus-run-session -- "$@" 3>&-
