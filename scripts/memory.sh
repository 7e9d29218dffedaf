#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures the memory that long use takes, in the release preset: 1000 openings of the browser, 100000 moves of the
# highlight, 10000 hovers, 1000 new drawings. The tests do a tenth of that each time they run.
# Nothing else should run meanwhile, or it takes long.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

tests=(tst_documentgrowth tst_steadymemory)

scripts/install-packages.sh build run test
echo "Building the release preset ..."
scripts/quietly.sh cmake --preset release -DBUILD_TESTING=ON
scripts/quietly.sh cmake --build --preset release --target RecentDocumentBrowser "${tests[@]}"

export LONG_RUN=1
export QTEST_FUNCTION_TIMEOUT=3600000 # milliseconds; the moves may take minutes
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
status=0
for test in "${tests[@]}"; do # not by ctest, which would end them early
    "build/release/tests/$test" || status=1
done
exit "$status"
