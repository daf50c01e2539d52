#!/usr/bin/env bash
# Builds the libFuzzer targets (preset "fuzz": clang 15 with AddressSanitizer
# and UndefinedBehaviorSanitizer) and runs each for a bounded time on a
# scratch copy of its checked-in corpus. A crash, a sanitizer report or a
# model mismatch fails; the input that caused it is kept in
# build/fuzz/artifacts/. Each run is repeatable: a fixed seed, a fixed number of
# inputs, Qt's hashing seed fixed and address randomisation off, so that what CI
# finds can be found again on any machine. ZO_FUZZ_SEED and ZO_FUZZ_SCALE (a
# factor on the inputs per fuzzer, 1 by default) vary them; ZO_FUZZ_SECONDS
# (120) caps each run's time.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

ZO_PACKAGES+=(clang-15 libfuzzer-15-dev)
zo_install_packages
cd "$REPO_ROOT"
zo_as_user cmake --preset fuzz
zo_as_user cmake --build --preset fuzz --parallel "$(nproc)"

seconds="${ZO_FUZZ_SECONDS:-120}"
seed="${ZO_FUZZ_SEED:-20261126}"
scale="${ZO_FUZZ_SCALE:-1}"
run_dir="build/fuzz/run"
zo_as_user rm -rf "$run_dir"
zo_as_user mkdir -p "$run_dir" build/fuzz/artifacts
failed=0
# Every registry step checks every lookup, so its inputs are kept short.
declare -A max_len=([registry]=256 [pointlist]=1024 [setters]=1024 [files]=4096)
# About a minute each on two cores.
declare -A runs=([registry]=6000 [pointlist]=60000 [setters]=25000 [files]=60000)
for fuzzer in registry pointlist setters files; do
    zo_as_user cp -r "fuzz/corpus/$fuzzer" "$run_dir/$fuzzer"
    count=$((runs[$fuzzer] * scale))
    echo "== fuzz_$fuzzer: $count inputs from seed $seed"
    if ! zo_as_user env QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0 \
        ASAN_OPTIONS="detect_leaks=1:halt_on_error=1:max_free_fill_size=4096:free_fill_byte=165" \
        LSAN_OPTIONS="suppressions=$REPO_ROOT/tests/sanitizers/lsan.supp:print_suppressions=0" \
        UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1" \
        setarch "$(uname -m)" -R "build/fuzz/fuzz/fuzz_$fuzzer" -seed="$seed" -runs="$count" -max_total_time="$seconds" -max_len="${max_len[$fuzzer]}" -timeout=30 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/artifacts/$fuzzer-" "$run_dir/$fuzzer" \
        2>"$run_dir/$fuzzer.log"; then
        tail -n 60 "$run_dir/$fuzzer.log"
        failed=1
    else
        grep -E "^stat::number_of_executed_units|^#[0-9]+.*DONE" "$run_dir/$fuzzer.log" || true
    fi
done
exit "$failed"
