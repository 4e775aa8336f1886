#!/usr/bin/env bash
# Many more SIGKILL runs than the CTest test makes: the logging driver is killed at random
# moments and after each kill every acknowledged QSO must be in the log, integrity_check must be
# "ok" and the driver must start again on the folder.
#
#   tools/crash_soak.sh [RUNS] [BUILD_DIR]     (defaults: 1000, build-release)
# Extra options go to the test program through CRASH_ARGS, e.g. CRASH_ARGS="--seed 42".
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-1000}
build=${2:-build-release}
cmake --build "$build" -j2 --target hfcontest_crash_test hfcontest-script >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# private copies: a rebuild while the soak runs must not pull the driver from under it
cp "$build/tests/hfcontest_crash_test" "$build/hfcontest-script" "$work/"
# shellcheck disable=SC2086
"$work/hfcontest_crash_test" --driver "$work/hfcontest-script" --work "$work/run" \
  --runs "$runs" ${CRASH_ARGS:-}
