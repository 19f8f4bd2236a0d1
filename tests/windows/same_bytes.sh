#!/usr/bin/env bash
# Runs asset_tool of this system and of Windows on every sample: output, messages and exit status must agree.
# same_bytes.sh SAMPLES NATIVE_TOOL WINDOWS_TOOL...: the last one with whatever runs it in front.
set -u
samples=$1 native=$2
shift 2
windows=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0 compared=0

fail() {
    echo "FAILED: $*"
    failed=1
}

# compare STATUS ARGUMENT...: runs both tools, which must agree and end with that status.
compare() {
    local expected=$1 status
    shift
    "$native" "$@" <"$work/input" >"$work/native" 2>"$work/native.messages"
    status=$?
    [ $status = "$expected" ] || fail "$* ends with $status, not $expected"
    "${windows[@]}" "$@" <"$work/input" >"$work/windows" 2>"$work/windows.messages"
    [ $? = $status ] || fail "$* ends otherwise on Windows"
    cmp "$work/native" "$work/windows" || fail "$* writes other bytes on Windows"
    # Wine's own processes, which start with the first program, may have their say.
    diff "$work/native.messages" <(grep -v '^wine: ' "$work/windows.messages") || fail "$* says other things on Windows"
    compared=$((compared + 1))
}

: >"$work/input"
for sample in "$samples"/*.*; do
    compare 0 convert "$sample"
    compare 0 inspect "$sample"
    compare 0 inspect --json "$sample"
done

compare 0 model "$samples/scene.ase"
compare 0 model --scale 0.1 --json "$samples/scene.ase"

# Names outside every code page, and standard input.
name="$work/scène 日本 𝄞.ase"
cp "$samples/scene.ase" "$name"
compare 0 convert "$name"
"${windows[@]}" convert "$name" -o "$name.txt" && cmp "$work/native" "$name.txt" || fail "convert $name -o $name.txt"
compare 1 convert "$name.missing"
cp "$name" "$work/input"
compare 0 convert -

echo "$compared runs compared"
exit $failed
