#!/bin/sh
# Runs a program in a D-Bus session of its own with an unlocked, empty keyring; nothing of the user's
# is seen or touched.
set -eu
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export HOME="$home" XDG_DATA_HOME="$home/data" XDG_CONFIG_HOME="$home/config" \
    XDG_CACHE_HOME="$home/cache" XDG_RUNTIME_DIR="$home/run"
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset DBUS_SESSION_BUS_ADDRESS
dbus-run-session -- sh -eu -c '
    printf secret | gnome-keyring-daemon --unlock --components=secrets >/dev/null
    "$@"
    status=$?
    pkill -P $$ gnome-keyring 2>/dev/null || true
    exit $status
' sh "$@"
