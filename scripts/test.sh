#!/usr/bin/env bash
# Builds everything with the "default" preset and runs the whole test suite;
# exits non-zero when anything fails.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

zo_install_packages
zo_build
cd "$REPO_ROOT"
zo_as_user ctest --preset default --parallel "$(nproc)"
