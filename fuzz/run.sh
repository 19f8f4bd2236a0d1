#!/usr/bin/env bash
# Runs fuzz targets, two at a time, each for some seconds from the samples and its kept corpus on, and tells how many
# inputs each executed. What a target finds is left in build/fuzz/found, and the script then fails.
#     fuzz/run.sh [-k] [SECONDS [TARGET...]]
# -k keeps what was learnt: the corpus under fuzz/corpus becomes the few, short inputs that reach as much of the code.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$here/cmake/setup.sh"

keep=false
if [ "${1:-}" = -k ]; then
    keep=true
    shift
fi
seconds=${1:-30}
shift $(($# > 0 ? 1 : 0))
targets=("$@")

build fuzz -DASSET_TOOLS_FUZZ=ON all
bin=$here/build/fuzz/bin
found=$here/build/fuzz/found
learnt=$here/build/fuzz/learnt
mkdir -p "$found"
if [ ${#targets[@]} = 0 ]; then
    targets=("$bin"/*_fuzz)
    targets=("${targets[@]##*/}")
fi
# The sanitizer would keep what was freed back, up to half of the limit below.
export ASAN_OPTIONS=${ASAN_OPTIONS:-quarantine_size_mb=32}

run_target() {
    local target=$1 corpus=$here/fuzz/corpus/$1 log=$found/$1.log
    mkdir -p "$corpus" "$learnt/$target"
    # The documents print what they exclude: that output is closed.
    local options=(-dict="$here/fuzz/formats.dict" -rss_limit_mb=512 -timeout=2 -close_fd_mask=1
        -artifact_prefix="$found/$target-")
    if ! "$bin/$target" "${options[@]}" -max_total_time="$seconds" -print_final_stats=1 "$learnt/$target" "$corpus" \
        "$here/samples" >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        echo "$target: found something, see above; $(grep -o 'Test unit written to .*' "$log" || echo "$log")" >&2
        return 1
    fi
    sed -n "s/^stat::number_of_executed_units: */$target: inputs: /p" "$log"
    rm "$log"
    $keep || return 0
    local kept
    kept=$(mktemp -d)
    "$bin/$target" "${options[@]}" -set_cover_merge=1 -use_counters=0 -max_len=1024 "$kept" "$corpus" "$learnt/$target" >"$log" 2>&1
    rm -rf "$corpus" "$log"
    mv "$kept" "$corpus"
    chmod 755 "$corpus"
}

export -f run_target
export here bin found learnt seconds keep
result=0
printf '%s\n' "${targets[@]}" | xargs -P 2 -I{} bash -euo pipefail -c 'run_target {}' | tee "$found/inputs" || result=1
awk '{ sum += $3 } END { print "inputs in all: " sum + 0 }' "$found/inputs"
exit $result
