#!/usr/bin/env bash
# Installs what is missing for a purpose: "run" to build and run the program, "test" for its tests
# too, "pictures" for the pictures of the guide, "bench" for the benchmarks as well. Says what it is
# about to install; with nothing missing it says nothing and is quick.
set -euo pipefail
cd "$(dirname "$0")/../.."

readonly purpose=${1:?run, test or bench}
readonly onnxruntime=build/deps/onnxruntime
readonly playwright=build/deps/playwright-core

packages=(
    ccache cmake g++ ninja-build pkg-config
    libavcodec-dev libavformat-dev libavutil-dev libcli11-dev libexiv2-dev libglib2.0-dev
    libicu-dev liblcms2-dev libraw-dev libssl-dev libswscale-dev libtiff-dev libvips-dev
    nlohmann-json3-dev
)
# The window.
packages+=(
    libqt6svg6
    qml6-module-qt-labs-folderlistmodel qml6-module-qtqml qml6-module-qtqml-models
    qml6-module-qtqml-workerscript qml6-module-qtquick qml6-module-qtquick-controls
    qml6-module-qtquick-dialogs qml6-module-qtquick-layouts qml6-module-qtquick-templates
    qml6-module-qtquick-window qt6-base-dev qt6-declarative-dev qt6-wayland
    qt6-xdgdesktopportal-platformtheme
)
case "$purpose" in
run) ;;
test)
    packages+=(
        btrfs-progs chromium dbus-daemon e2fsprogs ffmpeg libgmock-dev libgtest-dev nodejs python3 xfsprogs
    )
    # The making of the classifier; OpenBLAS is what its matrices are quick with.
    packages+=(libopenblas0-pthread python3-numpy python3-onnx python3-pil python3-torch)
    ;;
pictures) packages+=(libgmock-dev libgtest-dev xauth xvfb) ;;
bench) packages+=(ffmpeg libbenchmark-dev libgmock-dev libgtest-dev python3) ;;
*)
    echo "setup: There is no purpose named $purpose; run, test, pictures and bench are." >&2
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

# What comes from npm: its name, the script beside this one that brings it, the folder it goes to.
fetch() {
    command -v npm >/dev/null || install_packages npm
    echo "setup: about to fetch $1 into $3" >&2
    "tools/setup/$2" "$3"
}

# The system's own ONNX Runtime where it has one (Debian 13 and later), otherwise a private copy.
install_onnxruntime() {
    if apt-cache show libonnxruntime-dev >/dev/null 2>&1; then
        install_packages libonnxruntime-dev
        return
    fi
    fetch "ONNX Runtime" onnxruntime.sh "$onnxruntime"
}

command -v apt-get >/dev/null ||
    fail "This script installs Debian packages. Elsewhere, see the list in $0."

missing=()
for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] || install_packages "${missing[@]}"

is_installed libonnxruntime-dev || [ -e "$onnxruntime/complete" ] || install_onnxruntime
if [ "$purpose" = test ] && [ ! -e "$playwright/complete" ]; then
    fetch playwright-core playwright.sh "$playwright"
fi
