#!/usr/bin/env bash
# Checks formatting and static analysis, builds everything twice (plain, and with ASan+UBSan)
# and runs every test through CTest.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh
./scripts/lint.sh
jobs=$(nproc)
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure -j "$jobs"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DHFC_SANITIZE=ON >/dev/null
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp" \
  ctest --test-dir build-asan --output-on-failure -j "$jobs"
