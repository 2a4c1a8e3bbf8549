#!/bin/sh
# abi.sh PYTHON COMPILER HEADER LIST WORK: what the list declares, the header has with the same types, layouts and values,
# and nothing else. After a wanted addition: tools/checks/abi.py include/tolkcolor.h > tools/checks/abi.txt
set -eu
python=$1 compiler=$2 header=$3 list=$4 work=$5
command -v abidiff >/dev/null || { echo "skipped: there is no abidiff (abigail-tools)"; exit 77; }
abi=$(dirname "$0")/abi.py
mkdir -p "$work"
"$python" -B "$abi" --stub "$list" >"$work/listed.c"
"$python" -B "$abi" --stub "$header" >"$work/declared.c"
for side in listed declared; do
  "$compiler" -g -shared -fPIC "$work/$side.c" -o "$work/$side.so"
done
abidiff --harmless --fail-no-debug-info "$work/listed.so" "$work/declared.so"
# Names of parameters too, and values of no type.
"$python" -B "$abi" "$header" | diff "$list" -
