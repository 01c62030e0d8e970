#!/usr/bin/env bash
# Takes pictures of every state of the window, into build/pictures/SCALE: `take.sh [SCALE [PRESET]]`,
# with SCALE pixels of the screen for one of the window's, 1 unless given. At 1, those that
# docs/guide.md shows are renewed in docs/pictures.
#
# No screen is needed, as it brings one, but the right to make a namespace: the folders in the
# pictures lie on a disk in memory that this script alone sees, so that nothing of the machine can be
# read in them.
set -euo pipefail
cd "$(dirname "$0")/../.."

readonly scale=${1-1}
readonly preset=${2-dev}
readonly out=$PWD/build/pictures/$scale

tools/setup/install.sh pictures
tools/setup/build.sh "$preset" take_pictures
mkdir -p "$out"
QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale \
    xvfb-run --auto-servernum --server-args "-screen 0 2400x1800x24" \
    unshare --map-root-user --mount bash -euc '
        mount -t tmpfs tmpfs /media
        exec "$1" "$2" /media/robin
    ' take "$PWD/build/$preset/bin/take_pictures" "$out"

[ "$scale" = 1 ] || exit 0
grep --only-matching 'pictures/[a-z-]*\.png' docs/guide.md | sort --unique | while read -r picture; do
    cp "$out/${picture#pictures/}" "docs/$picture"
done
