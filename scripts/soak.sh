#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A long day for the browser in the host's program, on a screen of its own, under the address and undefined-behaviour
# sanitizers: scripts/soak.sh [SECONDS [SEED [STEPS]]]
# Random input, drawings, files, screens, and the module coming and going, with what must always hold looked at after
# each step. 600 seconds of a new day, unless told otherwise. What was done is in build/asan/tests/soak.log; the same
# seed does the same again, up to STEPS.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

export SOAK_SECONDS=${1:-600} SOAK_SEED=${2:-$RANDOM}
[[ -z ${3-} ]] || export SOAK_STEPS=$3
echo "Seed $SOAK_SEED, $SOAK_SECONDS seconds."
# Qt ends a test that takes longer than it is told, in milliseconds.
export QTEST_FUNCTION_TIMEOUT=$(((SOAK_SECONDS + 600) * 1000))
./test asan -R '^desktop/soak/tst_soak$' --timeout $((SOAK_SECONDS + 700)) -V
