#!/usr/bin/env bash
# Installs what is missing for a purpose: "run" to build and run the program, "test" for its tests
# too, "bench" for the benchmarks as well. Says what it is about to install; with nothing missing it says nothing and is quick.
set -euo pipefail
cd "$(dirname "$0")/../.."

readonly purpose=${1:?run, test or bench}
readonly onnxruntime=build/deps/onnxruntime

packages=(
    ccache cmake g++ ninja-build pkg-config
    libcli11-dev libexiv2-dev libglib2.0-dev libicu-dev libraw-dev libssl-dev libtiff-dev
    libvips-dev nlohmann-json3-dev
)
case "$purpose" in
run) ;;
test) packages+=(libgmock-dev libgtest-dev python3) ;;
bench) packages+=(libbenchmark-dev libgmock-dev libgtest-dev python3) ;;
*)
    echo "setup: There is no purpose named $purpose; run, test and bench are." >&2
    exit 2
    ;;
esac

fail() {
    echo "setup: $*" >&2
    exit 1
}

is_installed() {
    [ "$(dpkg-query --show --showformat '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "Installing packages needs root or sudo, and neither is at hand."
    fi
}

install_packages() {
    echo "setup: about to install these Debian packages: $*" >&2
    as_root apt-get update -qq >&2 || fail "The package lists could not be read."
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "$@" >&2 ||
        fail "The packages could not be installed."
}

# The system's own ONNX Runtime where it has one (Debian 13 and later), otherwise a private copy.
install_onnxruntime() {
    if apt-cache show libonnxruntime-dev >/dev/null 2>&1; then
        install_packages libonnxruntime-dev
        return
    fi
    command -v npm >/dev/null || install_packages npm
    echo "setup: about to fetch ONNX Runtime into $onnxruntime" >&2
    tools/setup/onnxruntime.sh "$onnxruntime"
}

command -v apt-get >/dev/null ||
    fail "This script installs Debian packages. Elsewhere, see the list in $0."

missing=()
for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] || install_packages "${missing[@]}"

is_installed libonnxruntime-dev || [ -e "$onnxruntime/complete" ] || install_onnxruntime
