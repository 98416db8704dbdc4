#!/bin/sh
# Runs the demonstration without a display: the lamps in a table, a picture, and a clean end.
set -eu
folder=$(mktemp -d)
server=
trap '[ -z "$server" ] || kill "$server"; rm -rf "$folder"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$folder/config"
"$1" --demo --snapshot "$folder/panel.png" >"$folder/table"
cat "$folder/table"
grep -q '^Desk lamp .* LIFX A19 .* on ' "$folder/table"
grep -q '^玄関の照明 ' "$folder/table"
[ "$(wc -l <"$folder/table")" -eq 9 ]
[ "$(head -c 4 "$folder/panel.png" | tail -c 3)" = PNG ]
grep -q sortOrder "$folder/config/lumeroom/demo.plist"

# SIGTERM does what the menu's Quit does, also where Qt has threads of its own: on a display.
mkfifo "$folder/number"
Xvfb -displayfd 3 -nolisten tcp 3>"$folder/number" >/dev/null 2>&1 &
server=$!
read -r number <"$folder/number"
DISPLAY=":$number" QT_QPA_PLATFORM=xcb "$1" --demo --defaults "$folder/other.plist" &
sleep 2
kill -TERM $!
wait $!
grep -q sortOrder "$folder/other.plist"
