#!/usr/bin/env bash
# needed_dlls.sh OBJDUMP FOLDER: the programs and DLLs there must need only each other and the system's DLLs.
set -u
foreign=$(for file in "$2"/*.exe "$2"/*.dll; do
    "$1" -p "$file" | sed -n "s|.*DLL Name: |$(basename "$file") needs |p"
done | grep -viE ' (engine_core|asset_tools|kernel32|msvcrt|shell32|user32|advapi32)\.dll$')
echo "${foreign:-none}"
[ -z "$foreign" ]
