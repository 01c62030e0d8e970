#!/usr/bin/env bash
# Brings ONNX Runtime into the folder given, on systems whose own packages do not hold it: the
# library from the npm package that ships it, the header from Debian 13's development package,
# which is read through a private package list and unpacked, never installed.
set -euo pipefail

readonly version=1.21.0
readonly target=${1:?the folder to fill is missing}

fail() {
    echo "setup: $*" >&2
    exit 1
}

case "$(uname -m)" in
x86_64) readonly architecture=x64 ;;
aarch64) readonly architecture=arm64 ;;
*) fail "ONNX Runtime comes for x86-64 and ARM64 only, and this is $(uname -m)." ;;
esac

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$target/include" "$target/lib"

fetch_library() {
    (cd "$work" && npm pack --silent "onnxruntime-node@$version" >/dev/null) ||
        fail "npm could not fetch onnxruntime-node $version."
    tar -xzf "$work/onnxruntime-node-$version.tgz" -C "$work" --wildcards \
        "package/bin/*/linux/$architecture/libonnxruntime.so.1"
    install -m 644 "$work"/package/bin/*/linux/"$architecture"/libonnxruntime.so.1 "$target/lib/"
    ln -sf libonnxruntime.so.1 "$target/lib/libonnxruntime.so"
}

# The mirror is the one this machine already takes its packages from.
fetch_header() {
    local mirror
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' \
        'Codename: bookworm' | head -n 1)
    [ -n "$mirror" ] || fail "No Debian mirror is set up on this machine."

    mkdir -p "$work"/lists/partial "$work"/archives/partial
    echo "deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $mirror trixie main" \
        >"$work/sources.list"
    local private=(
        -o "Dir::Etc::SourceList=$work/sources.list" -o "Dir::Etc::SourceParts=-"
        -o "Dir::State::Lists=$work/lists" -o "Dir::Cache::Archives=$work/archives"
        -o "Dir::Cache::pkgcache=" -o "Dir::Cache::srcpkgcache="
        -o "APT::Sandbox::User=$(id -un)"
    )
    apt-get "${private[@]}" update -qq || fail "Debian 13's package list could not be read."
    (cd "$work" && apt-get "${private[@]}" download -qq libonnxruntime-dev) ||
        fail "Debian 13's ONNX Runtime header could not be fetched."
    dpkg-deb --extract "$work"/libonnxruntime-dev_*.deb "$work/header"
    find "$work/header" -name 'onnxruntime_*.h' -exec install -m 644 {} "$target/include/" \;
}

fetch_library
fetch_header
touch "$target/complete"
