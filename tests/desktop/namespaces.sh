#!/bin/bash
# Two hosts joined by a cable, both namespaces made here: lamps on one, the program on the other.
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

# The lamps' host is a namespace held by a sleeping process.
unshare -n sleep 300 >/dev/null 2>&1 &
lamps=$!
sleep 0.5
ip link set lo up
ip link add cable0 type veth peer name cable1
ip link set cable1 netns "$lamps"
ip addr add 10.77.0.1/24 dev cable0
ip link set cable0 up
ip route add default dev cable0
on_lamps() { nsenter --net="/proc/$lamps/ns/net" "$@"; }
on_lamps ip link set lo up
on_lamps ip link set cable1 up
for n in 11 12 13; do on_lamps ip addr add "10.77.0.$n/24" dev cable1; done
nsenter --net="/proc/$lamps/ns/net" "$2" --any-address --broadcast --address 10.77.0.11 --address 10.77.0.12 \
    --address 10.77.0.13 --label Hall --label Attic --label Cellar --product 27,10,32 \
    --log "$folder/traffic" >/dev/null 2>&1 &
sleep 1

check() { # what was found
    cat "$folder/table"
    for name in Hall Attic Cellar; do
        if ! grep -q "^$name " "$folder/table"; then
            echo "FAILED: $name was not found by $1"
            exit 1
        fi
    done
    echo "found by $1"
}
"$1" --log --defaults "$folder/a.plist" --snapshot "$folder/a.png" >"$folder/table" 2>"$folder/log" ||
    cat "$folder/log"
check "a real broadcast"
grep -q '"type":2,' "$folder/traffic"

# Without broadcasts, the ARP table names them: a stand-in for the names that a router would give.
for n in 11 12 13; do echo hello >"/dev/udp/10.77.0.$n/9" || true; done
sleep 1
printf '127.0.0.1 localhost\n10.77.0.11 lifx-a\n10.77.0.12 lifx-b\n10.77.0.13 lifx-c\n' >"$folder/hosts"
mount --bind "$folder/hosts" /etc/hosts
cat >"$folder/b.plist" <<'P'
<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>noBroadcastSupport</key><true/></dict></plist>
P
: >"$folder/traffic"
"$1" --log --defaults "$folder/b.plist" --snapshot "$folder/b.png" >"$folder/table" 2>"$folder/log" ||
    cat "$folder/log"
check "the ARP table"
