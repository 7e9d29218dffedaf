#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the Debian packages in build/package/packages: make-packages.sh [CMAKE-ARGUMENT...]
# They are for the release of Debian that this runs on. The same commit gives the same packages. Arguments are for example
# -DCPACK_PACKAGE_CONTACT="NAME <ADDRESS>", who maintains the packages, and -DBROWSER_HOMEPAGE=URL.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

if [[ ${1-} == -h || ${1-} == --help ]]; then
    sed -n '3,5s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
fi

scripts/install-packages.sh build package
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export SOURCE_DATE_EPOCH # the date of everything that the packages contain
umask 022                # all users can read the folders in them

echo "Building the packages ..."
rm -rf -- build/package/packages # of other versions
scripts/quietly.sh cmake --preset package "$@"
scripts/quietly.sh cmake --build --preset package
scripts/quietly.sh cpack --preset package
rm -r -- build/package/packages/_CPack_Packages
ls -- build/package/packages/*.deb
