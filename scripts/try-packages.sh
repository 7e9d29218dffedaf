#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the Debian packages, and tries them in a minimal system of this release of Debian: try-packages.sh [ROOT]
# lintian checks them. With only what they depend on, they are installed, each program runs, and they are purged; then
# every file must be as before. ROOT is the folder of the system, which is made if it does not exist and used again
# otherwise; build/bare by default. Requires root or sudo.
set -euo pipefail

if [[ ${1-} == -h || ${1-} == --help ]]; then
    sed -n '3,6s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
fi
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
folder=build/package/packages

fail() {
    echo "try-packages: $*" >&2
    exit 1
}

# The files of the system with their sizes. Without: the kernel's, temporary and the project's files, and dpkg's own
# records and log.
files() {
    find / \( -path /proc -o -path /sys -o -path /dev -o -path /tmp -o -path /project -o -path /var/lib/dpkg \) -prune \
        -o ! -path /var/log/dpkg.log -printf '%p %M %l' \( -type f -printf ' %s\n' -o -printf '\n' \) | sort
}

use_programs() {
    local version=$1 drawing
    export HOME=/tmp LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR
    cd /tmp
    [[ $(fxhost --version) == "fxhost $version" ]] || fail "fxhost is not of version $version"
    drawing=$(find "/project/$folder" -name '*.dwg' | sort | sed -n 1p)
    printf '%s\n' _NEW _RECENT '_DELAY 100' '_SCREENSHOT /tmp/browser.png' _QUIT >script
    timeout 600 fxhost --script script --log log "$drawing" || fail "fxhost ended with status $?"
    for line in 'module .*/RecentDocumentBrowser.so loaded' "open $drawing ok" 'command _RECENT 5100' \
        'command _SCREENSHOT 5100'; do
        grep -qx -- "$line" log || fail "not in the log of fxhost: $line"
    done
    timeout 600 fxthumbnail -s 64 "$drawing" picture.png || fail "fxthumbnail ended with status $?"
    [[ $(head -c 4 picture.png | tail -c 3) == PNG ]] || fail "fxthumbnail wrote no picture"
    # Without a desktop, it reports that nothing can show the file.
    ! timeout 600 fxshow "$drawing" 2>errors || fail "fxshow found a file manager"
    grep -q xdg-open errors || fail "fxshow reports: $(cat errors)"
    grep -q 'image/vnd.dwg=.*fxhost.desktop' /usr/share/applications/mimeinfo.cache || fail "no program opens drawings"
}

if [[ ${1-} == --inside ]]; then # the minimal system
    packages=("$PWD/$folder"/*.deb)
    mapfile -t names < <(for package in "${packages[@]}"; do dpkg-deb -f "$package" Package; done)
    depends=$(for package in "${packages[@]}"; do dpkg-deb -f "$package" Depends; done | paste -sd ,)
    export DEBIAN_FRONTEND=noninteractive
    scripts/quietly.sh dpkg --purge "${names[@]}" # of an interrupted run
    scripts/quietly.sh apt-get -q update
    # And what updates the caches of a desktop when a package brings files for it.
    scripts/quietly.sh apt-get -q satisfy -y --no-install-recommends "$depends" desktop-file-utils gtk-update-icon-cache
    files >/tmp/before
    scripts/quietly.sh dpkg --install "${packages[@]}"
    (use_programs "$(dpkg-deb -f "${packages[0]}" Version | sed 's/-[^-]*$//')")
    scripts/quietly.sh dpkg --purge "${names[@]}"
    files >/tmp/after
    diff /tmp/before /tmp/after || fail "these files differ after the packages have been purged"
    echo "installed, run and purged: ${names[*]}"
    exit 0
fi

scripts/make-packages.sh
QT_QPA_PLATFORM=offscreen scripts/quietly.sh build/package/bin/make_samples "$folder/samples"
scripts/install-packages.sh try
report=$(lintian --allow-root --fail-on none "$folder"/*.deb)
# Except that a first version should close a bug of Debian's own archive, and that an application should have a home page.
if grep -v -e initial-upload-closes-no-bugs -e appstream-metadata-validation-failed <<<"$report"; then
    fail "lintian has objections"
fi
release=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
scripts/try-debian.sh "$release" "${1:-build/bare}" scripts/try-packages.sh --inside
