#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Looks for races between threads: builds the tsan preset and runs the tests that read pictures or count references on
# several threads under the thread sanitizer: tsan.sh [CTEST-ARGUMENT...], for example tsan.sh --repeat until-fail:20
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

# What reads pictures on Qt's shared threads or on some of its own, and what counts references from several. Without
# tst_loadedmodule: of a library that has been unloaded and loaded again the sanitizer knows no names, and so cannot
# leave out what tsan.supp says.
tests=(tst_crowdedpool tst_previewreading tst_thumbnailcache tst_documents tst_moduleobject tst_sdk)

# Qt is not built for the sanitizer. What its libraries do to memory is ignored, since what orders it is unseen as well;
# tests/support/QtSynchronization.cpp tells what they order for us. Some tests ask for more memory than there can be.
options=halt_on_error=1:second_deadlock_stack=1:ignore_noninstrumented_modules=1:allocator_may_return_null=1
export TSAN_OPTIONS=$options:suppressions=$PWD/scripts/tsan.supp:print_suppressions=0

scripts/install-packages.sh build run test
echo "Building the tsan preset ..."
scripts/quietly.sh cmake --preset tsan -DBUILD_TESTING=ON
scripts/quietly.sh cmake --build --preset tsan --target "${tests[@]}"

pattern=$(IFS='|' && echo "/(${tests[*]})\$")
exec ctest --preset tsan --no-tests=error -R "$pattern" "$@"
