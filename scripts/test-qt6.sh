#!/usr/bin/env bash
# The whole test suite again against Qt 6 (preset "qt6", build/qt6): builds
# everything and runs every test, the viewer's and the installed package's
# among them; installs Qt 6 first when run as root.
set -euo pipefail
ZO_PRESET=qt6
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

zo_install_packages
zo_build
cd "$REPO_ROOT"
zo_as_user ctest --preset qt6 --parallel "$(nproc)"
