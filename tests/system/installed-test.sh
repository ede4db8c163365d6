#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# installed-test.sh BUILD SOURCE [compiler options]: a tree that is installed under
# another prefix than configured works there: its bus file starts the service, which
# opens a document, and programs can be built with its libhubservice.
set -eu
if [ -z "${LECTERN_TEST_NAMESPACE-}" ]; then
    # The queue and the segments belong to the machine, so this test uses its own
    # namespace.
    namespace=--ipc
    [ "$(id -u)" = 0 ] || namespace="--ipc --map-root-user"
    # shellcheck disable=SC2086 # a list of options
    LECTERN_TEST_NAMESPACE=1 exec unshare $namespace "$0" "$@"
fi
build=$1
source=$2
shift 2

fail() {
    echo "$*" >&2
    exit 1
}

tree=$(mktemp -d)
prefix=$tree/else
service=""
bus=""
finish() {
    for process in $service $bus; do
        kill "$process" 2>/dev/null || true
        tail --pid="$process" -f /dev/null
    done
    rm -rf "$tree"
}
trap finish EXIT

# As for a package: installed below a folder other than its final one.
DESTDIR=$tree/stage cmake --install "$build" --prefix /opt/lectern >"$tree/log"
staged=$tree/stage/opt/lectern
grep -qx "Exec=/opt/lectern/bin/lectern-service" "$staged/share/dbus-1/services/com.kestrel.office.service" \
    || fail "the bus file below DESTDIR names another program"
grep -qx "ExecStart=/opt/lectern/bin/lectern-service" "$staged/lib/systemd/user/lectern.service" \
    || fail "the unit below DESTDIR names another program"

(cd "$tree" && cmake --install "$build" --prefix else >log) || fail "the prefix cannot be a relative one"
grep -qx "ExecStart=$prefix/bin/lectern-service" "$prefix/lib/systemd/user/lectern.service" \
    || fail "the unit names another program"

cat >"$tree/bus.conf" <<CONFIGURATION
<busconfig>
  <type>session</type>
  <listen>unix:dir=$tree</listen>
  <servicedir>$prefix/share/dbus-1/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
CONFIGURATION
# A sanitizer's dlopen, which searches for modules, does not use the run path.
[ $# -eq 0 ] || export LD_LIBRARY_PATH="$prefix/lib/lectern"
mkfifo "$tree/address"
dbus-daemon --config-file="$tree/bus.conf" --nofork --print-address >"$tree/address" 2>"$tree/bus.log" &
bus=$!
read -r DBUS_SESSION_BUS_ADDRESS <"$tree/address"
export DBUS_SESSION_BUS_ADDRESS

"$prefix/bin/lectern" open "$source/samples/tour.docx" -o "$tree/tour.png" || fail "the document does not open"
service=$(busctl --user status com.kestrel.office | sed -n 's/^PID=//p')
[ "$(readlink "/proc/$service/exe")" = "$prefix/bin/lectern-service" ] || fail "the bus started another program"
[ -s "$tree/tour.png" ] || fail "there is no picture"

PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name hubservice.pc)")
export PKG_CONFIG_PATH
cat >"$tree/program.c" <<'PROGRAM'
#include <hubservice.h>
int main(void) {
    HubError error;
    HubErrorInit(&error);
    HubErrorFree(&error);
    return 0;
}
PROGRAM
# shellcheck disable=SC2046 # lists of options
cc "$@" $(pkg-config --cflags hubservice) "$tree/program.c" -o "$tree/program" $(pkg-config --libs hubservice) \
    || fail "no program can be built with libhubservice"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir hubservice) "$tree/program" || fail "and none runs"
