#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a command and shows its output only if it fails: quietly.sh COMMAND [ARG...]
set -euo pipefail

log=$(mktemp)
trap 'rm -f -- "$log"' EXIT

"$@" >"$log" 2>&1 || {
    status=$?
    cat -- "$log" >&2
    exit "$status"
}
