#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures how long the browser and the preview reader take, compared with the same written straight with Qt.
# bench.sh [ROW...]          medians and least times in milliseconds, and the ratio of the medians (docs/PERFORMANCE.md)
# bench.sh --count [ROW...]  the ratio of executed instructions, which no other program disturbs
# bench.sh --check           the same for the rows of bench/instructions.txt, in the dev build: status 1 if a ratio is more
#                            than 0.05 above what is recorded there
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

mode="time"
case ${1-} in
-h | --help)
    sed -n '3,8s/^# //p' "${BASH_SOURCE[0]}"
    exit 0
    ;;
--count | --check)
    mode=${1#--}
    shift
    ;;
esac
preset=release
[[ $mode != check ]] || preset=dev # which .ci/run has built; nearly all that is counted is Qt
packages=(build run)
[[ $mode == time ]] || packages+=(bench)
scripts/install-packages.sh "${packages[@]}"
echo "Building the $preset preset ..."
scripts/quietly.sh cmake --preset "$preset" -DBUILD_TESTING=ON
scripts/quietly.sh cmake --build --preset "$preset" --target bench_menu bench_popup bench_reader fxprobe

bin=build/$preset/bin
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8

declare -A program recorded
rows=()
for name in menu popup reader; do
    while read -r row; do
        [[ $mode == time || $row != process-* ]] || continue # the instructions of other processes are not counted
        program[$row]=$bin/bench_$name
        rows+=("$row")
    done < <("$bin/bench_$name" --list)
done
if [[ $mode == check ]]; then
    while read -r row ratio; do
        [[ $row == '#' ]] || recorded[$row]=$ratio
    done <bench/instructions.txt
    (($# > 0)) || set -- "${!recorded[@]}"
fi
(($# == 0)) || rows=("$@")
for row in "${rows[@]}"; do
    if [[ -z ${program[$row]-} || ($mode == check && -z ${recorded[$row]-}) ]]; then
        echo "bench: no such row: $row" >&2
        exit 2
    fi
done

if [[ $mode == time ]]; then
    printf '%-28s %19s   %19s   %5s   %5s\n' '' 'ours, median least' 'other, median least' ratio most
    for row in "${rows[@]}"; do
        "${program[$row]}" "$row"
    done
    (($# > 0)) || for whose in ours other; do
        "$bin/bench_popup" --memory "$whose"
    done
    exit 0
fi

# Prints the instructions that a program executes in measured().
count() {
    valgrind --tool=callgrind --collect-atstart=no --toggle-collect='*measured*' --callgrind-out-file=/dev/null \
        "$1" --only "$2" "$3" 2>&1 | sed -n 's/.*Collected : //p'
}

# Prints a row's ratio, with both sides counted at the same time.
ratio() {
    local ours other
    exec 3< <(count "${program[$1]}" ours "$1")
    other=$(count "${program[$1]}" other "$1")
    read -r ours <&3
    awk -v ours="$ours" -v other="$other" 'BEGIN { printf "%.3f", ours / other }'
}

status=0
for row in "${rows[@]}"; do
    now=$(ratio "$row")
    printf '%-28s %s%s\n' "$row" "$now" "${recorded[$row]:+   recorded ${recorded[$row]}}"
    if [[ $mode == check ]] && awk -v now="$now" -v was="${recorded[$row]}" 'BEGIN { exit !(now > was + 0.05) }'; then
        echo "$row: more than 0.05 above what is recorded"
        status=1
    fi
done
exit "$status"
