#!/usr/bin/env bash
# Builds the unit suite under AddressSanitizer and UndefinedBehaviorSanitizer
# (preset "asan", no recovery) and runs it; any sanitizer report fails.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

zo_install_packages
cd "$REPO_ROOT"
zo_as_user cmake --preset asan
zo_as_user cmake --build --preset asan --parallel "$(nproc)" --target zographics_tests
zo_as_user ctest --preset asan --parallel "$(nproc)"
