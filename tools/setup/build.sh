#!/usr/bin/env bash
# Builds targets of a preset: build.sh PRESET [TARGET…]. Quiet when nothing is left to do; the
# compiler's words go to standard error, so that a program run afterwards owns standard output.
set -euo pipefail
cd "$(dirname "$0")/../.."

readonly preset=${1:?the preset is missing}
shift

if [ ! -e "build/$preset/build.ninja" ]; then
    cmake --preset "$preset" >&2 || {
        echo "build: The build could not be set up; the reason is above." >&2
        exit 1
    }
fi
if ! ninja -C "build/$preset" -n "$@" | grep -q 'no work to do'; then
    ninja -C "build/$preset" "$@" >&2 || {
        echo "build: The program could not be built; the reason is above." >&2
        exit 1
    }
fi
