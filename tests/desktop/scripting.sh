#!/bin/bash
# The demonstration and its client on a session bus made here.
# Usage: scripting.sh LUMEROOM LUMEROOMCTL COMPLETION
set -eu
for command in dbus-run-session gdbus; do
    if ! command -v "$command" >/dev/null; then
        echo "skipped: there is no $command (packages dbus-daemon, libglib2.0-bin)"
        exit 77
    fi
done
[ "${4:-}" = inside ] || exec dbus-run-session -- "$0" "$1" "$2" "$3" inside

folder=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$folder"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$folder/config" XDG_RUNTIME_DIR="$folder"
export LC_ALL=C.UTF-8
lumeroom=$1
client=$2

fail() {
    echo "FAILED: $*" >&2
    exit 1
}
ctl() { "$client" --demo "$@"; }
# Runs a command that has to end with this status and to say this.
expect() {
    local status=$1 text=$2 got=0 output
    shift 2
    output=$("$@" 2>&1) || got=$?
    [ "$got" -eq "$status" ] || fail "'$*' ended with $got, not $status: $output"
    [[ $output == *"$text"* ]] || fail "'$*' said: $output"
}
# Tries for ten seconds.
wait_for() {
    local i
    for ((i = 0; i < 100; i++)); do
        if "$@" >/dev/null 2>&1; then return; fi
        sleep 0.1
    done
    fail "'$*' did not come true"
}
shows_lamps() { [ "$(ctl lamps --names | wc -l)" -eq "$1" ]; }
# What a lamp itself answers: hue, saturation, brightness, kelvin, reserved, power.
ask_lamp() {
    exec 4<>"/dev/udp/$1/56700"
    printf '\x24\0\0\x14\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0\0\0\x65\0\0\0' >&4
    timeout 2 dd bs=256 count=1 status=none <&4 | od -An -v -t u2 -j 36 -N 12
    exec 4>&-
}
lamp_holds() { # ADDRESS FIELD VALUE
    # shellcheck disable=SC2046
    set -- "$1" "$2" "$3" $(ask_lamp "$1")
    local field=$(($2 + 3))
    [ "${!field}" = "$3" ]
}

# Without the program, or without a bus
expect 3 "Lumeroom is not running" ctl lamps
expect 3 "no session bus" env DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere "$client" lamps
expect 2 "PROPERTY VALUE: At least 2 required but received 1" "$client" set Desk brightness
expect 2 "lumeroomctl: the following argument was not expected: --nope" "$client" --nope
expect 2 "'name' cannot be set; these can: brightness, hue, whiteness, saturation, kelvin, state" \
    "$client" set Desk name Other
refused() { # by what it says, and what is set
    expect 2 "lumeroomctl: $1" "$client" set "Desk lamp" state off "${@:2}"
}
refused "brightness is a whole number from 0 to 255, or 0% to 100%, not '1.5'" brightness 1.5
refused "brightness is" brightness 100.1%
refused "hue is a whole number from 0 to 257, or 0deg to 360deg, not '-1deg'" hue -1deg
refused "kelvin is a whole number from 2500 to 9000, not '2499'" kelvin 2499
refused "kelvin is" kelvin nanK
refused "saturation is given twice" whiteness 1 saturation 1
! "$client" $'dance\e\u202e' 2>&1 | grep -q $'[\e\u202e]' || fail "a message works the terminal"

"$lumeroom" --demo 2>/dev/null &
program=$!
wait_for shows_lamps 8
named() { ctl lamps --names | grep -qx "$1"; }
wait_for named "Floor lamp"
knows_addresses() { grep -q '127[0-9.]*' "$folder/config/lumeroom/demo.plist"; }
wait_for knows_addresses
any=$(grep -o '127[0-9.]*' "$folder/config/lumeroom/demo.plist" | head -n 1)
first=${any%.*}.1
second=${any%.*}.2

# Without --demo
expect 3 "lumeroomctl: only the demonstration is running; add --demo to control it" "$client" lamps
expect 3 "Lumeroom is not running" "$client" --defaults "$folder/none.plist" lamps

# Lists; wide characters line up
ctl lamps | grep -q '^Desk lamp \{25\}on '
ctl lamps | grep -q '^玄関の照明 \{24\}on '

# Reading
expect 0 '"Desk lamp"' ctl get d073d50000010000 label --json
expect 1 "nothing named 'group:Desk lamp'" ctl get "group:Desk lamp"

# A change reaches the lamp, and so does the next one; those who watch are told
ctl watch >"$folder/watched" 2>&1 &
watcher=$!
ctl watch --json >"$folder/watched.json" 2>&1 &
sleep 0.5
ctl set "Desk lamp" brightness 100 hue 100
wait_for lamp_holds "$first" 3 25500
wait_for lamp_holds "$first" 1 25500
ctl set "Desk lamp" brightness 50 state off
wait_for lamp_holds "$first" 3 12750
wait_for lamp_holds "$first" 6 0
wait_for grep -qx "Desk lamp: brightness 50" "$folder/watched"
wait_for grep -qx "Desk lamp: state off" "$folder/watched"
wait_for grep -q '"event":"changed","id":"d073d50000010000",.*"property":"brightness","value":50' "$folder/watched.json"
ctl set "Desk lamp" state on # whatever the lamp last reported
wait_for lamp_holds "$first" 6 65535

# In people's units, both ends of the range exact; kelvin alone makes it white
sets() { # what is set, then what the lamp has to hold of it
    # shellcheck disable=SC2086
    ctl set "Desk lamp" $1
    wait_for lamp_holds "$first" "${@:2}"
}
sets "brightness 100% kelvin 2700" 3 65025
lamp_holds "$first" 4 2700 && lamp_holds "$first" 2 0 || fail "it is no warm white"
ctl lamps | grep -q '^Desk lamp .* on .* 100%  *2700 K' || fail "$(ctl lamps)"
expect 0 2700 ctl get "Desk lamp" kelvin
sets "brightness 0% kelvin 9000K saturation 100%" 3 0
lamp_holds "$first" 4 9000 && lamp_holds "$first" 2 65025 || fail "it is no cool colour"
sets "brightness 40% hue 120°" 3 26010
wait_for grep -qx "Desk lamp: kelvin 2700" "$folder/watched"
shows_colour() { ctl lamps | grep -q '^Desk lamp .* on .* 40%  *green 120°'; }
wait_for shows_colour

# Off and on again, all of them or none
ctl toggle "Desk lamp" "Ceiling"
wait_for lamp_holds "$first" 6 0
wait_for lamp_holds "$second" 6 0
ctl toggle "Ceiling" "Desk lamp"
wait_for lamp_holds "$first" 6 65535
wait_for lamp_holds "$second" 6 65535
expect 1 "nothing named 'Nobody'" ctl toggle "Desk lamp" Nobody
sleep 0.2
lamp_holds "$first" 6 65535 || fail "half of a toggle was done"

# A LIGHT_SETCOLOR of brightness 32639 from elsewhere: the lamp tells by itself
printf '\x31\0\0\x14\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x66\0\0\0\0\0\0\0\0\x7f\x7f\xac\x0d\0\0\0\0' \
    >"/dev/udp/$second/56700"
wait_for grep -qx "Ceiling: brightness 127" "$folder/watched"

# In the panel's words
ctl set "Desk lamp" brightness 1 hue 120deg whiteness 80%
shows_pale() { ctl lamps | grep -q '^Desk lamp .* on .* 1%  *pale green 120°'; }
wait_for shows_pale
ctl set "Desk lamp" brightness 50

# Any program of the bus
service=com.tanagerworks.Lumeroom.Demo
root=/com/tanagerworks/Lumeroom
lamp=$root/lamps/d073d50000020000
call() { gdbus call --session --dest "$service" --object-path "$@"; }
set_property() {
    call "$lamp" --method org.freedesktop.DBus.Properties.Set com.tanagerworks.Lumeroom.Lamp "$@"
}
gdbus introspect --session --recurse --dest "$service" --object-path "$root" >"$folder/tree"
grep -q 'readwrite i Brightness = 50;' "$folder/tree"
grep -q 'readonly s Search = .*No lamp has answered there' "$folder/tree"
grep -q 'GetManagedObjects(out a{oa{sa{sv}}} objects);' "$folder/tree"
expect 1 "A lamp's hue is not sent by itself. Apply sends it." set_property Hue '<int32 1>'
set_property Brightness '<int32 150>' >/dev/null
expect 1 "a further one would not be sent" set_property Brightness '<int32 151>'
wait_for lamp_holds "$second" 3 38250
state_of_lamps() { ask_lamp "$first" && ask_lamp "$second"; }
before=$(state_of_lamps)
expect 1 "InvalidArgs: Hue is a whole number from 0 to 257, not 258." set_property Hue '<int32 258>'
expect 1 "PropertyReadOnly: Name can only be read." set_property Name '<"Other">'
expect 1 "UnknownObject" call "$root/lamps/x" --method com.tanagerworks.Lumeroom.Lamp.Apply '{}'
expect 1 "UnknownProperty: There is no property Speed." call "$lamp" \
    --method com.tanagerworks.Lumeroom.Lamp.Apply "{'Brightness': <int32 1>, 'Speed': <int32 1>}"
expect 1 "UnknownMethod: There is no RunPreset with the arguments (si) here." \
    call "$root" --method com.tanagerworks.Lumeroom.RunPreset 1 2
expect 2 "brightness is a whole number from 0 to 255" ctl set "Desk lamp" brightness 99999999999
expect 1 "UnknownObject" call "$root/nowhere" --method org.freedesktop.DBus.Introspectable.Introspect
sleep 0.5
[ "$(state_of_lamps)" = "$before" ] || fail "a refused change reached the lamp"

# What the panel does not show
wait_for ctl get location:Home
zone() { ctl zones | awk 'NR == 2 { print $NF }' | grep .; }
wait_for zone
expect 1 "lumeroomctl: a zone goes on and off with its lamp" ctl set "$(zone)" state off
expect 1 "a zone goes on and off with its lamp" ctl toggle "Desk lamp" "$(zone)"
ctl set location:Home brightness 200
wait_for lamp_holds "$second" 3 51000
expect 0 8 eval 'ctl lamps --json | grep -c "brightness.: 200"'

# Presets and commands
expect 1 "there is no preset 'Nothing'" ctl run Nothing
expect 1 "InvalidArgs: A name or a path has at most 1024 bytes." \
    call "$root" --method com.tanagerworks.Lumeroom.RunPreset "$(printf '%1025s')"
call "$root" --method com.tanagerworks.Lumeroom.AllOff >/dev/null
wait_for lamp_holds "$first" 6 0
ctl run "All on"
wait_for lamp_holds "$first" 6 65535
ctl run "All off"
wait_for lamp_holds "$first" 6 0
call "$root" --method com.tanagerworks.Lumeroom.AllOn >/dev/null
wait_for lamp_holds "$first" 6 65535

# A second start shows the first one's panel; other settings make another program
expect 0 "already running" "$lumeroom" --demo
expect 0 "already running" "$lumeroom" --defaults "$folder/config/../config/lumeroom/demo.plist"
"$lumeroom" --demo-lamps 2 --defaults "$folder/other.plist" 2>/dev/null &
other=$!
others() { [ "$("$client" --defaults "$folder/other.plist" lamps --names | wc -l)" -eq 2 ]; }
wait_for others
expect 0 "lumeroomctl: none of the lamps has told of zones" "$client" --defaults "$folder/other.plist" zones
shows_lamps 8 || fail "the second program disturbed the first"

# Completion
(
    PATH="$(dirname "$client"):$PATH"
    # shellcheck disable=SC1090
    . "$3"
    completes() {
        local wanted=$1
        shift
        COMP_WORDS=(lumeroomctl --demo "$@")
        COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
        # As bash does it: ':' and '=' are words of their own.
        COMP_LINE=${COMP_WORDS[*]}
        COMP_LINE=${COMP_LINE// : /:} COMP_LINE=${COMP_LINE// = /=}
        _lumeroomctl
        [ "${COMPREPLY[*]}" = "$wanted" ] || fail "completed '$*' to '${COMPREPLY[*]}'"
    }
    completes 'groups get' g
    completes Home get location : H
    completes 'Desk\ lamp' get De
    completes 'Desk lamp' get '"Desk l'
    completes brightness set 'Desk\ lamp' b
    completes 'on off' set 'Desk\ lamp' hue 1 state ''
    completes brightness set lamp : 'Floor\ lamp' b
    touch "$folder/a file"
    completes "$folder/a\\ file" --defaults = "$folder/a"
)

# Quitting ends those who watch
kill -TERM "$other" "$program"
wait "$other" || fail "the second program ended with $?"
wait "$program" || fail "the program ended with $?"
status=0
wait "$watcher" || status=$?
[ "$status" -eq 3 ] || fail "watch ended with $status"
expect 3 "Lumeroom is not running" ctl lamps

# Without a bus the program works, and says once what is missing
DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere "$lumeroom" --demo --log --snapshot "$folder/panel.png" \
    >/dev/null 2>"$folder/log"
[ "$(grep -c "no session bus: scripts cannot reach the program" "$folder/log")" -eq 1 ]
