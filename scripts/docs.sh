#!/usr/bin/env bash
# Builds the API reference (Doxygen over include/ZoGraphics) into
# build/docs/docs/api/html; any Doxygen warning fails.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

ZO_PACKAGES+=(doxygen)
zo_install_packages
cd "$REPO_ROOT"
zo_as_user cmake -S . -B build/docs -DZOGRAPHICS_BUILD_DOCS=ON -DZOGRAPHICS_BUILD_TESTS=OFF -DZOGRAPHICS_BUILD_APPS=OFF
if ! zo_as_user cmake --build build/docs --target docs; then
    cat build/docs/docs/api/warnings.log >&2
    exit 1
fi
echo "API reference: build/docs/docs/api/html/index.html"
