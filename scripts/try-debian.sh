#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the project and runs its tests on another Debian release: try-debian.sh [RELEASE [ROOT [COMMAND...]]]
# RELEASE is trixie by default. ROOT is the folder of a minimal system of that release, which is made if it does not exist
# and used again otherwise; build/debian-RELEASE by default. The files that git tracks, and packages that were built, are
# copied to /project in it, and COMMAND is run there; ./test by default. The exit status is that of the command. Requires
# root or sudo.
set -euo pipefail

if [[ ${1-} == -h || ${1-} == --help ]]; then
    sed -n '3,7s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
fi
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
scripts/install-packages.sh debian
if (($$ != 1)); then
    as_root=()
    ((EUID == 0)) || as_root=(sudo)
    # In namespaces of its own: however this script ends, its mounts and processes end with it.
    exec "${as_root[@]}" unshare --mount --pid --fork --kill-child --mount-proc scripts/try-debian.sh "$@"
fi

release=${1:-trixie}
root=${2:-build/debian-$release}
command=("${@:3}")
((${#command[@]} > 0)) || command=(./test)

if [[ ! -e $root ]]; then
    echo "Making a minimal system of Debian $release in $root ..."
    rm -rf -- "$root.part" # of an interrupted run
    mkdir -p -- "$root.part/project"
    scripts/quietly.sh debootstrap --variant=minbase "$release" "$root.part"
    mv -- "$root.part" "$root"
elif [[ ! -d $root/project ]]; then
    echo "try-debian: not made by this script: $root" >&2
    exit 2
fi

# Replace everything except the build folder. Files keep their times, so that only what has changed is built again.
find "$root/project" -mindepth 1 -maxdepth 1 ! -name build -exec rm -rf -- {} +
{
    git ls-files -z
    find build/package/packages -type f -print0 2>/dev/null || true
} | tar -c --null -T - --ignore-failed-read | tar -x --no-same-owner -C "$root/project"

mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
mount -t tmpfs tmpfs "$root/tmp"
chroot "$root" env -i -C /project HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin "${command[@]}"
