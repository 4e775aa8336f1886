#!/usr/bin/env bash
# Installs what is missing, builds, and starts the logger (extra arguments go to the program).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build-release -j "$(nproc)" --target hfcontest hfcontest-script
exec ./build-release/hfcontest "$@"
