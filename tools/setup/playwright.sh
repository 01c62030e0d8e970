#!/usr/bin/env bash
# Brings playwright-core, which drives the browser of the review page's tests, into the folder
# given: the npm package alone, which depends on nothing. No install script runs and no browser is
# fetched; the tests use the system's Chromium.
set -euo pipefail

readonly version=1.60.0
readonly target=${1:?the folder to fill is missing}

fail() {
    echo "setup: $*" >&2
    exit 1
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

(cd "$work" && npm pack --silent "playwright-core@$version" >/dev/null) ||
    fail "npm could not fetch playwright-core $version."
mkdir -p "$target"
tar -xzf "$work/playwright-core-$version.tgz" -C "$target" --strip-components=1
touch "$target/complete"
