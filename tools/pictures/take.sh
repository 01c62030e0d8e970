#!/usr/bin/env bash
# Takes the pictures of the window that docs/guide.md shows, into docs/pictures. No screen is
# needed, but the right to make a namespace: the folders in the pictures lie on a disk in memory
# that this script alone sees, so that nothing of the machine can be read in them.
set -euo pipefail
cd "$(dirname "$0")/../.."

readonly preset=${1-dev}
readonly out=$PWD/docs/pictures

tools/setup/install.sh test
tools/setup/build.sh "$preset" take_pictures
mkdir -p "$out"
exec unshare --map-root-user --mount bash -euc '
    mount -t tmpfs tmpfs /media
    exec "$1" "$2" /media/robin
' take "$PWD/build/$preset/bin/take_pictures" "$out"
