#!/usr/bin/env bash
# Builds the libFuzzer targets (preset "fuzz": clang 15 with AddressSanitizer
# and UndefinedBehaviorSanitizer) and runs each for a bounded time on a
# scratch copy of its checked-in corpus. A crash, a sanitizer report or a
# model mismatch fails; the input that caused it is kept in
# build/fuzz/artifacts/. ZO_FUZZ_SECONDS sets the time per fuzzer (60).
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

ZO_PACKAGES+=(clang-15 libfuzzer-15-dev)
zo_install_packages
cd "$REPO_ROOT"
zo_as_user cmake --preset fuzz
zo_as_user cmake --build --preset fuzz --parallel "$(nproc)"

seconds="${ZO_FUZZ_SECONDS:-60}"
run_dir="build/fuzz/run"
zo_as_user rm -rf "$run_dir"
zo_as_user mkdir -p "$run_dir" build/fuzz/artifacts
failed=0
# Every registry step checks every lookup, so its inputs are kept short.
declare -A max_len=([registry]=256 [pointlist]=1024 [setters]=1024 [files]=4096)
for fuzzer in registry pointlist setters files; do
    zo_as_user cp -r "fuzz/corpus/$fuzzer" "$run_dir/$fuzzer"
    echo "== fuzz_$fuzzer for ${seconds} s"
    if ! zo_as_user env QT_QPA_PLATFORM=offscreen \
        ASAN_OPTIONS="detect_leaks=1:halt_on_error=1:max_free_fill_size=4096:free_fill_byte=165" \
        LSAN_OPTIONS="suppressions=$REPO_ROOT/tests/sanitizers/lsan.supp:print_suppressions=0" \
        UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1" \
        "build/fuzz/fuzz/fuzz_$fuzzer" -max_total_time="$seconds" -max_len="${max_len[$fuzzer]}" -timeout=30 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/artifacts/$fuzzer-" "$run_dir/$fuzzer" \
        2>"$run_dir/$fuzzer.log"; then
        tail -n 60 "$run_dir/$fuzzer.log"
        failed=1
    else
        grep -E "^stat::number_of_executed_units|^#[0-9]+.*DONE" "$run_dir/$fuzzer.log" || true
    fi
done
exit "$failed"
