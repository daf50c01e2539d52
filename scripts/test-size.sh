#!/usr/bin/env bash
# Prints the size of the test sources (tests/ and fuzz/, .h and .cpp; corpora,
# data and CMake files not counted) against the product's .h and .cpp lines
# (everything else but the benchmarks), as wc -l counts them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

count() {
    # Reads NUL-separated file names, prints their total line count.
    xargs -0 -r cat -- | wc -l
}
sources() {
    find . \( -path ./build -o -path ./.git -o -path ./out \) -prune -o \
        -type f \( -name '*.h' -o -name '*.cpp' \) -print0
}
tests=$(sources | grep -zE '^\./(tests|fuzz)/' | count)
product=$(sources | grep -zvE '^\./(tests|fuzz|bench)/' | count)
awk -v t="$tests" -v p="$product" 'BEGIN {
    printf "test sources: %d lines, product: %d lines, ratio: %.1f%%\n", t, p, (p ? 100 * t / p : 0)
}'
