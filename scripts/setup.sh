#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running needs. Asks for nothing, says nothing
# when there is nothing to do, and may be run as often as one likes; as root or with sudo.
set -euo pipefail

packages=(
    # build
    g++ cmake ninja-build ccache pkg-config
    # the library
    libicu-dev libabsl-dev libtbb-dev libfftw3-dev
    # the host
    icu-devtools libpugixml-dev libspdlog-dev libyaml-cpp-dev nlohmann-json3-dev libcli11-dev
    libocct-data-exchange-dev libocct-ocaf-dev libocct-visualization-dev libgmsh-dev libsqlite3-dev
    # tests
    libgtest-dev libgmock-dev libudunits2-dev
    # benchmarks
    libboost-dev libeigen3-dev libglm-dev libnanoflann-dev
)

missing=()
for package in "${packages[@]}"; do
    if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
        missing+=("$package")
    fi
done
[ "${#missing[@]}" -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "setup: run this as root, or install sudo" >&2; exit 3; }
    as_root=(sudo)
fi

echo "setup: installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
export DEBIAN_FRONTEND=noninteractive
if ! { "${as_root[@]}" apt-get update -qq &&
       "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
           apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -n 20 "$log" >&2
    echo "setup: installing the packages failed; the lines above are apt's" >&2
    exit 3
fi
