#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Two programs that keep one list of recent drawings, 500 drawings each; and a program that is killed 200 times while it
# writes the list: scripts/shared-profile.sh
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

LONG_RUN=1 BROWSER_PRESET=${BROWSER_PRESET:-release} ./test -R '^host/app/tst_sharedprofile$' -V
