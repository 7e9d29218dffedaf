#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Updates the catalogues in translations/ from the texts in the sources: update-translations.sh [--check]
# --check changes nothing, and fails if a catalogue lacks a text, has an unused one, or is unfinished.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

folder=translations
if [[ ${1-} == --check ]]; then
    folder=$(mktemp -d)
    trap 'rm -rf -- "$folder"' EXIT
    cp translations/*.ts "$folder"
fi

lupdate=/usr/lib/qt5/bin/lupdate # which may not be in the PATH
[[ -x $lupdate ]] || lupdate=lupdate
update() {
    local name=$1 catalogue plural
    shift
    for catalogue in "$folder/$name"_*.ts; do
        plural=()
        [[ $catalogue != *_en.ts ]] || plural=(-pluralonly) # the texts in the sources are English, with one form
        scripts/quietly.sh "$lupdate" -silent -no-obsolete -locations none "${plural[@]}" -I . -I sdk "$@" -ts "$catalogue"
    done
}
update fxhost host/app host/runtime sdk/sdkhost
update RecentDocumentBrowser module state ui

[[ $folder != translations ]] || exit 0
status=0
for catalogue in "$folder"/*.ts; do
    diff -u "translations/${catalogue##*/}" "$catalogue" || status=1
    ! grep -n 'type="unfinished"' "$catalogue" || status=1
done
exit "$status"
