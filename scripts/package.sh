#!/usr/bin/env bash
# Builds the Debian packages libzographics, libzographics-dev and
# zographics-viewer into build/<preset>/ (preset "package", Qt 5, or
# "package-qt6"), installing into /usr:
#   scripts/package.sh [package|package-qt6]
#   sudo apt-get install ./build/package/*.deb
set -euo pipefail
ZO_PRESET="${1:-package}"
case "$ZO_PRESET" in
package | package-qt6) ;;
*)
    echo "usage: $0 [package|package-qt6]" >&2
    exit 2
    ;;
esac
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
# dpkg-shlibdeps reads the Depends off the built libraries.
ZO_PACKAGES+=(dpkg-dev file)

zo_install_packages
zo_build
cd "$BUILD_DIR"
rm -f ./*.deb
zo_as_user cpack -G DEB
ls -1 "$BUILD_DIR"/*.deb
