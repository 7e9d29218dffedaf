#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the fuzz targets and runs them with clang's engine: fuzz.sh [--seconds N] [--jobs N] [TARGET...]
# for N seconds each, 60 by default; or fuzz.sh --executions N [--jobs N] [TARGET...].
# Inputs with new coverage are stored in build/fuzz/corpus/TARGET, those that failed in
# build/fuzz/findings/TARGET; build/fuzz/bin/fuzz_TARGET FILE runs one again. Status 1 if any failed.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

# The longest input, in bytes. Longer ones are slower and hardly find more faults.
declare -A longest=([preview]=8192 [commands]=2048 [recentlist]=4096)
declare -A dictionary=([preview]=preview [commands]=commands
    [recentlist]=recentlist)
all=(preview recentlist commands)

fail() {
    echo "fuzz: $*" >&2
    exit 2
}

number() {
    [[ ${2-} =~ ^[1-9][0-9]*$ ]] || fail "$1 needs a number"
    echo "$2"
}

seconds=60
executions=0 # 0: no limit
jobs=$(nproc)
targets=()
while (($# > 0)); do
    case $1 in
    --seconds)
        seconds=$(number "$@")
        shift
        ;;
    --executions)
        executions=$(number "$@")
        seconds=0 # 0: no limit
        shift
        ;;
    --jobs)
        jobs=$(number "$@")
        shift
        ;;
    -h | --help)
        sed -n '3,6s/^# //p' "${BASH_SOURCE[0]}"
        exit 0
        ;;
    *)
        [[ -n ${longest[$1]-} ]] || fail "no such target: $1 (targets: ${all[*]})"
        targets+=("$1")
        ;;
    esac
    shift
done
((${#targets[@]} > 0)) || targets=("${all[@]}")

build=$PWD/build/fuzz
scripts/install-packages.sh build fuzz
echo "Building the fuzz preset ..."
scripts/quietly.sh cmake --preset fuzz
scripts/quietly.sh cmake --build --preset fuzz

# A small quarantine, because with the default size, freed large pictures fill the memory.
export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:quarantine_size_mb=32
export LSAN_OPTIONS=print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8

pids=()
# Background processes do not receive an interrupt by themselves.
trap '((${#pids[@]} == 0)) || kill "${pids[@]}" 2>/dev/null || true; exit 130' INT TERM

# Prints one line for all jobs, from the three numbers that they share (see tests/fuzz/Target.h).
summary() {
    local target=$1 taken=$2 findings=$3 count slowest largest
    read -r count slowest largest < <(od -An -v -w24 -t u8 -- "$build/logs/$target.costs")
    awk -v target="$target" -v count="$count" -v taken="$taken" -v slowest="$slowest" -v largest="$largest" \
        -v findings="$findings" 'BEGIN {
            printf "%s: %d executions, %d/s, slowest %.1f ms, largest %.1f MiB, %d findings\n", target, count,
                count / (taken > 0 ? taken : 1), slowest / 1000, largest / (1024 * 1024), findings }'
}

# Runs the engine in several processes, which share new inputs through the corpus. Each ends at its first
# finding.
fuzz() {
    local target=$1 job pid began findings=0
    local corpus=$build/corpus/$target found=$build/findings/$target seeds=$build/seeds/$target
    rm -rf -- "$seeds" "$build/logs/$target".*
    mkdir -p -- "$corpus" "$found" "$build/logs"
    "$build/bin/make_seeds" "$target" "$seeds"

    # The engine's own limits, in seconds and MiB, are wide, because it measures elapsed time, which is longer
    # on a busy machine. The targets check the actual limits. Inputs are also weighted by their execution
    # time, because a few large pictures would take most of it.
    local options=(-max_len="${longest[$target]}" -dict="tests/fuzz/${dictionary[$target]}.dict"
        -max_total_time="$seconds" -timeout=600 -rss_limit_mb=1024 -entropic_scale_per_exec_time=1
        -artifact_prefix="$found/" -reload=10 -close_fd_mask=2 -print_final_stats=1)
    ((executions == 0)) || options+=(-runs=$(((executions + jobs - 1) / jobs)))
    began=$EPOCHREALTIME
    pids=()
    for ((job = 1; job <= jobs; ++job)); do
        FUZZ_COSTS=$build/logs/$target.costs "$build/bin/fuzz_$target" "${options[@]}" "$corpus" "$seeds" \
            >"$build/logs/$target.$job" 2>&1 &
        pids+=($!)
    done
    for ((job = 1; job <= jobs; ++job)); do
        pid=${pids[job - 1]}
        wait "$pid" && continue
        findings=$((findings + 1))
        echo "$target: job $job ended with a finding, see $build/logs/$target.$job:"
        grep -vE '^#|^INFO|^stat::' -- "$build/logs/$target.$job" | head -n 40
    done
    summary "$target" "$(awk -v began="$began" -v ended="$EPOCHREALTIME" 'BEGIN { print ended - began }')" "$findings"
    ((findings == 0))
}

status=0
for target in "${targets[@]}"; do
    fuzz "$target" || status=1
done
exit "$status"
