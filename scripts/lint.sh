#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the source tree with all tools configured in the root: lint.sh [--fix] [PATH...]
# --fix first corrects what the formatter and the spell checker find. PATHs restrict the checks to some
# folders or files: lint.sh state ui/QBalloonTip.cpp. Without C++ sources among them, nothing is built.
# shellcheck disable=SC2317 # the checks are called by their names
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

fix=false
if [[ ${1-} == --fix ]]; then
    fix=true
    shift
fi

# The Qt analyser's default level, and the checks of the slower levels that suit this code. Without the check
# for static objects: the registry consists of them, and they are created and destroyed with the library.
clazy_checks=level1,no-non-pod-global-static,function-args-by-ref,heap-allocated-small-trivial-type
clazy_checks+=,isempty-vs-count,old-style-connect,returning-void-expression,tr-non-literal,unneeded-cast

scripts/install-packages.sh build run test lint

# The files that git tracks or would add, by type.
cpp=() units=() shell=() texts=()
while IFS= read -r -d '' file; do
    [[ -f $file ]] || continue # deleted, but not yet in git
    grep -qI . -- "$file" || continue # not a text file
    texts+=("$file")
    case $file in
    tests/fixtures/*.cpp | *.h) cpp+=("$file") ;;
    *.cpp) cpp+=("$file") units+=("$file") ;;
    esac
    if head -n 1 -- "$file" | grep -qE '^#(!.*\b(ba|da)?sh| shellcheck shell=bash)\b'; then shell+=("$file"); fi
done < <(git ls-files --cached --others --exclude-standard -z -- "$@")
if ((${#texts[@]} == 0)); then
    echo "lint: no file of the project matches: $*" >&2
    exit 2
fi

status=0
check() {
    local name=$1 began=$SECONDS
    if "${name//-/_}"; then
        echo "ok      $name ($((SECONDS - began)) s)"
    else
        echo "FAILED  $name"
        status=1
    fi
}

format() {
    local output
    ((${#cpp[@]} > 0)) || return 0
    output=$(clang-format --dry-run -Werror "${cpp[@]}" 2>&1) && return 0
    grep 'error:' <<<"$output" # without the quoted lines
    return 1
}

spelling() {
    codespell "${texts[@]}"
}

licence() {
    local file bare=0
    for file in "${texts[@]}"; do
        case $file in
        # LICENSE covers documents and data files, some of which do not support comments.
        LICENSE | *.md | *.json | *.ts | *.svg | *.qrc | *.ui | *.tsv | .gitignore | */.gitignore) continue ;;
        esac
        # In scripts, the first line names the interpreter.
        if ! head -n 2 -- "$file" | grep -q 'SPDX-License-Identifier: MIT'; then
            echo "$file: the SPDX line is missing"
            bare=1
        fi
    done
    return "$bare"
}

# The tree contains no paths of this machine and no notes about open work.
plain_words() {
    local notes='\b(TO[D]O|FIX[M]E|XX[X])\b'
    local found=0
    ! grep -nE -e "$notes" -- "${texts[@]}" || found=1
    ! grep -nF -e "$PWD/" -- "${texts[@]}" || found=1
    return "$found"
}

shell_scripts() {
    ((${#shell[@]} == 0)) || shellcheck "${shell[@]}"
}

translations() {
    scripts/update-translations.sh --check
}

# The files for the desktop, as they are installed.
desktop_files() {
    local page warnings
    [[ "${texts[*]}" == *packaging/* ]] || return 0
    scripts/quietly.sh cmake --preset dev -DBUILD_TESTING=ON || return 1
    warnings=$({
        # Whether there is a home page is for whoever builds to choose.
        appstreamcli validate --no-net build/dev/packaging/fxhost.metainfo.xml |
            grep '^[EW]:' | grep -v url-homepage-missing || true
        desktop-file-validate packaging/*.desktop
        for page in build/dev/packaging/*.1; do groff -ww -z -man -Tutf8 -K utf8 "$page"; done
    } 2>&1)
    [[ -z $warnings ]] || {
        echo "$warnings"
        return 1
    }
}

# Creates the compile commands for the analysers: of several files at a time, because most of the time is for Qt's
# headers; without options that only g++ supports, and without warnings as errors: clang's warning about variadic macros
# is caused by Qt Test. The build compiles each file by itself, and checks what it includes and what it shadows.
database=build/lint
single=()  # files of the product: the analyser of paths only follows the functions of the file itself
product=() # units of several files
others=()  # the same of tests and benches, for which fewer checks are useful
compile_commands() {
    local unit found unity
    ((${#units[@]} > 0)) || return 0
    rm -rf -- "$database" # an old one would hide that this run has none
    scripts/quietly.sh cmake --preset dev -DBUILD_TESTING=ON || return 1
    # The sources include generated files.
    scripts/quietly.sh cmake --build --preset dev || return 1
    scripts/quietly.sh cmake --preset dev -B "$database" -DBUILD_TESTING=ON -DCMAKE_UNITY_BUILD=ON || return 1
    mkdir "$database/single" && cp build/dev/compile_commands.json "$database/single" || return 1
    sed -i -e 's/ -fno-gnu-unique / /; s/ -Werror / /; s/ -Wpedantic / /; s/ -Wno-subobject-linkage / /; s/ -Wshadow / /' \
        -e "s#-I$PWD/$database/#-I$PWD/build/dev/#g" "$database"/{,single/}compile_commands.json || return 1
    mapfile -t unity < <(grep -oP '"file": "\K[^"]*/Unity/[^"]*' "$database/compile_commands.json")
    for unit in "${units[@]}"; do
        found=$unit
        if ! grep -qF "/$unit\"" "$database/compile_commands.json" && ! found=$(grep -lF "/$unit\"" "${unity[@]}"); then
            echo "not analysed, as the dev preset does not compile it: $unit"
        elif [[ $unit == bench/* || $unit == tests/* ]]; then
            others+=("$found")
        else
            product+=("$found")
            single+=("$unit")
        fi
    done
    ((${#product[@]} == 0)) || mapfile -t product < <(printf '%s\n' "${product[@]}" | sort -u)
    ((${#others[@]} == 0)) || mapfile -t others < <(printf '%s\n' "${others[@]}" | sort -u)
}

# Runs an analyser on files: each_of ARRAY COMMAND [ARG...]. Shows its output only on failure, because clang always prints
# the number of suppressed warnings.
each_of() {
    local -n of=$1
    ((${#units[@]} > 0)) || return 0
    if [[ ! -d $database ]]; then
        echo "not run, because there are no compile commands"
        return 1
    fi
    ((${#of[@]} == 0)) || printf '%s\0' "${of[@]}" | xargs -0 -n 1 -P "$(nproc)" scripts/quietly.sh "${@:2}"
}

clang_tidy() {
    local status=0
    each_of product clang-tidy -p "$database" --quiet || status=1
    each_of single clang-tidy -p "$database/single" --quiet --checks='-*,clang-analyzer-*,-*.NewDeleteLeaks' || status=1
    each_of others clang-tidy -p "$database" --quiet --config-file=tests/.clang-tidy || status=1
    return "$status"
}

clazy() {
    local status=0 array
    for array in product others; do
        each_of "$array" clazy-standalone -p "$database" -extra-arg=-Werror -checks="$clazy_checks" \
            -header-filter='/(sdk|module|state|ui|resources|host|samples|bench|tests|examples)/.*\.(h|cpp)$' || status=1
    done
    return "$status"
}

if "$fix"; then
    ((${#cpp[@]} == 0)) || clang-format -i "${cpp[@]}"
    # It does not correct words with more than one suggestion; the check below reports them.
    codespell --write-changes "${texts[@]}" >/dev/null || true
fi

check format
check spelling
check licence
check plain-words
check shell-scripts
check translations
check desktop-files
check compile-commands
check clang-tidy
check clazy
exit "$status"
