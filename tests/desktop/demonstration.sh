#!/bin/sh
# Runs the demonstration without a display: the lamps in a table, a picture, and a clean end.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$folder/config"
lumeroom=$1
# Meanwhile another finds no place for its picture.
"$lumeroom" --demo-lamps 1 --defaults "$folder/astray.plist" --snapshot "$folder/none/panel.png" \
    >/dev/null 2>"$folder/astray" &
astray=$!
"$lumeroom" --demo --snapshot "$folder/panel.png" >"$folder/table"
cat "$folder/table"
grep -q '^Desk lamp .* LIFX A19 .* on ' "$folder/table"
grep -q '^玄関の照明 ' "$folder/table"
[ "$(wc -l <"$folder/table")" -eq 9 ]
[ "$(head -c 4 "$folder/panel.png" | tail -c 3)" = PNG ]
if grep 'sortOrder\|WindowState' "$folder/config/lumeroom/demo.plist"; then exit 1; fi
if wait $astray; then exit 1; fi
grep -qx "lumeroom: cannot save the picture to $folder/none/panel.png" "$folder/astray"

# So it works with its standard streams closed, which no file of its own may then replace.
"$lumeroom" --demo --snapshot "$folder/closed.png" <&- >&- 2>&-
cmp -n 4 "$folder/panel.png" "$folder/closed.png"

fails_with() { # the exit status, what it says, the settings file
    status=0
    DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere "$lumeroom" --demo --defaults "$3" 2>"$folder/said" ||
        status=$?
    [ $status -eq "$1" ]
    grep -q "$2" "$folder/said"
}
fails_with 2 'it is a folder' "$folder/config"

# SIGTERM does what the menu's Quit does, and so does closing the terminal.
ends_well() { # the settings file to keep, the signal
    "$lumeroom" --demo --defaults "$1" &
    program=$!
    while ! grep -qs knownIPs "$1"; do sleep 0.1; done
    sleep 2 # a lamp has answered, and soon is on the panel
    fails_with 1 'in use' "$1"
    for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
        kill -"$2" $program 2>/dev/null || true # again and again while it ends
        sleep 0.005
    done
    wait $program
    grep -q sortOrder "$1"
}
ends_well "$folder/other.plist" TERM
ends_well "$folder/hung-up.plist" HUP

# So it does on a real display, where Qt has threads of its own that could take the signal.
if command -v Xvfb >/dev/null; then
    Xvfb -displayfd 3 -nolisten tcp 3>"$folder/display" >/dev/null 2>&1 &
    display=$!
    trap 'kill $display; rm -rf "$folder"' EXIT
    while [ ! -s "$folder/display" ]; do sleep 0.1; done
    DISPLAY=":$(cat "$folder/display")" QT_QPA_PLATFORM=xcb
    export DISPLAY QT_QPA_PLATFORM
    ends_well "$folder/third.plist" TERM
fi
