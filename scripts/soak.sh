#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Stress test of the browser in the host's program, on a virtual screen, with the address and
# undefined-behaviour sanitizers: scripts/soak.sh [SECONDS [SEED [STEPS]]]
# Random input, drawings, files and screens; the module is loaded and unloaded. The invariants are checked
# after each step. Runs 600 seconds with a random seed by default. The steps are logged in
# build/asan/tests/soak.log; the same seed repeats them, up to STEPS.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

export SOAK_SECONDS=${1:-600} SOAK_SEED=${2:-$RANDOM}
[[ -z ${3-} ]] || export SOAK_STEPS=$3
echo "Seed $SOAK_SEED, $SOAK_SECONDS seconds."
# Qt Test ends a test function that takes longer than this, in milliseconds.
export QTEST_FUNCTION_TIMEOUT=$(((SOAK_SECONDS + 600) * 1000))
./test asan -R '^desktop/soak/tst_soak$' --timeout $((SOAK_SECONDS + 700)) -V
