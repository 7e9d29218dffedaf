#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the missing packages of the given groups in packages.txt: install-packages.sh GROUP...
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

say() { echo "install-packages: $*" >&2; }

wanted=()
for group in "$@"; do
    mapfile -t packages < <(awk -v group="$group" '$1 == group { print $2 }' packages.txt)
    if ((${#packages[@]} == 0)); then
        say "packages.txt has no group '$group'"
        exit 2
    fi
    wanted+=("${packages[@]}")
done

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    # Other distributions use other package names. If something is missing, the build reports it.
    say "apt-get is not available, so nothing is installed. Required Debian packages: ${wanted[*]}"
    exit 0
fi

missing=()
for package in "${wanted[@]}"; do
    # shellcheck disable=SC2016 # the braces are dpkg-query's own
    state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || state=unknown
    [[ $state == installed* ]] || missing+=("$package")
done
((${#missing[@]} > 0)) || exit 0

as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        say "missing: ${missing[*]}"
        say "cannot install them without root or sudo; as root, run: apt-get install ${missing[*]}"
        exit 1
    fi
    as_root=(sudo)
fi

# Wait up to five minutes for another package operation, which is often running on a new machine.
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
say "installing ${missing[*]}"
scripts/quietly.sh "${apt[@]}" update || say "could not update the package lists; using the existing ones"
scripts/quietly.sh "${apt[@]}" install -y --no-install-recommends "${missing[@]}" || {
    say "could not install: ${missing[*]}"
    exit 1
}
