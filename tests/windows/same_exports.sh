#!/usr/bin/env bash
# same_exports.sh NATIVE_LIBRARIES OBJDUMP DLL...: the DLLs must export the very names that the libraries of this
# system do, which tests/exports holds against what callers use.
set -u
native=$1 objdump=$2
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Sizes are unsigned long here and unsigned long long on Windows, where names of types are not exported. Which
# instances of function templates (those names begin with a result), of the standard library's templates and which
# thunks a compiler leaves behind is its own affair.
tidy() {
    c++filt | sed -e 's/unsigned long long/unsigned long/g' -e 's/> >/>>/g' |
        grep -vE '^(typeinfo name for|typeinfo for|guard variable|non-virtual thunk|std::|__gnu_cxx::|operator |[a-z]+ )' | sort -u
}

failed=0
for dll in "$@"; do
    name=$(basename "$dll" .dll)
    nm -D --defined-only "$native/lib$name.so" | awk '{ print $3 }' | tidy >"$work/native"
    "$objdump" -p "$dll" | sed -n '/Ordinal.Name Pointer. Table/,/^$/p' | awk '/^\t\[/ { print $NF }' | tidy >"$work/windows"
    diff "$work/native" "$work/windows" || failed=1
    echo "$name: $(wc -l <"$work/windows") names"
    [ -s "$work/windows" ] || failed=1
done
exit $failed
