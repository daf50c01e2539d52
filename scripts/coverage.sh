#!/usr/bin/env bash
# Builds the unit suite with coverage counters (the "coverage" preset), runs
# it once and prints the line and branch coverage of the library and the host
# (everything but tests, fuzzers, benchmarks and the viewer). gcovr comes from
# Debian: apt-get install -y gcovr. ZO_JOBS limits the parallel build.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

COVERAGE_DIR="$REPO_ROOT/build/coverage"
JOBS="${ZO_JOBS:-$(nproc)}"
command -v gcovr >/dev/null || { echo "gcovr is missing: apt-get install -y gcovr" >&2; exit 1; }

cd "$REPO_ROOT"
zo_as_user cmake --preset coverage
zo_as_user cmake --build --preset coverage --parallel "$JOBS" --target zographics_tests
find "$COVERAGE_DIR" -name '*.gcda' -delete
# A failing test still leaves its counters; the figures are printed either way.
status=0
QT_QPA_PLATFORM=offscreen zo_as_user "$COVERAGE_DIR/tests/zographics_tests" --gtest_brief=1 || status=$?
zo_as_user gcovr --root "$REPO_ROOT" --object-directory "$COVERAGE_DIR" \
    --filter "$REPO_ROOT/" \
    --exclude "$REPO_ROOT/(tests|fuzz|bench|apps|build)/" \
    --exclude-throw-branches --exclude-unreachable-branches --gcov-ignore-parse-errors \
    --print-summary --output "$COVERAGE_DIR/coverage.txt" -j "$JOBS"
exit "$status"
