#!/bin/bash
# A host with three cables, all namespaces made here: lamps on two of them, the default route on the
# third.
# Usage: namespaces.sh LUMEROOM VIRTUAL-LAMPS
set -eu
if [ "${3:-}" != inside ]; then
    if ! command -v ip >/dev/null; then
        echo "skipped: there is no ip command"
        exit 77
    fi
    if ! unshare -rnm true 2>/dev/null; then
        echo "skipped: the kernel allows no network namespaces here"
        exit 77
    fi
    exec unshare -rnm "$0" "$1" "$2" inside
fi
folder=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$folder"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$folder"

ip link set lo up
# A cable from here, at 10.77.N.1, to a host that is a namespace held by a sleeping process.
connect() { # N
    unshare -n sleep 300 >/dev/null 2>&1 &
    host=$!
    sleep 0.5
    ip link add "cable$1" type veth peer name there
    ip link set there netns "$host"
    ip addr add "10.77.$1.1/24" dev "cable$1"
    ip link set "cable$1" up
    on_host ip link set lo up
    on_host ip link set there up
}
on_host() { nsenter --net="/proc/$host/ns/net" "$@"; }
lamps() { # log, options
    local log=$1
    shift
    nsenter --net="/proc/$host/ns/net" "$virtual_lamps" --any-address --broadcast --log "$log" "$@" \
        >/dev/null 2>&1 &
}
virtual_lamps=$2
connect 0
ip route add default dev cable0
connect 1
on_host ip addr add 10.77.1.11/24 dev there
on_host ip addr add 10.77.1.12/24 dev there
lamps "$folder/traffic" --address 10.77.1.11 --address 10.77.1.12 --label Hall --label Attic --product 27,10
connect 2
on_host ip addr add 10.77.2.13/24 dev there
# Lamps are numbered in their order: two that nobody reaches leave the third number for this one.
lamps "$folder/traffic2" --address 127.0.0.1 --address 127.0.0.2 --address 10.77.2.13 \
    --label - --label - --label Cellar --product 32
sleep 1

"$1" --log --defaults "$folder/a.plist" --snapshot "$folder/a.png" >"$folder/table" 2>"$folder/log" ||
    cat "$folder/log"
cat "$folder/table"
for name in Hall Attic Cellar; do
    grep -q "^$name " "$folder/table"
done
grep -q '"type":2,' "$folder/traffic"
grep -q '"type":2,' "$folder/traffic2"
