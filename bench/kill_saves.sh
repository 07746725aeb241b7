#!/usr/bin/env bash
# The full kill test of OK's save: 100 SIGKILLs at random moments of the save of a
# 50 MB document, each leaving the old or the new document whole with its owner, group
# and mode. ./run test runs 10 of them; this runs as many as asked.
#
#     bench/kill_saves.sh [BUILD_DIR] [KILLS] [MB]      (defaults: build 100 50)
set -euo pipefail
ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${1:-$ROOT/build}
TABULON_KILL_SAVES=${2:-100} TABULON_KILL_SAVE_MB=${3:-50} \
    /usr/bin/time -f 'kill test: %e s, peak %M KB' \
    "$BUILD/tests/reliability/reliability_tests" \
    --gtest_filter='CrashSafeSave.KilledAtRandomMomentsOfTheSaveTheFileIsOldOrNew'
