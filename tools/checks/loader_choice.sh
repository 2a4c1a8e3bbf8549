#!/bin/sh
# loader_choice.sh PROGRAM LIBRARY_FOLDER yes|no: the loader takes the best installed class, and all have one record.
set -eu
program=$1 folder=$2 has_v3=$3
loader=/lib64/ld-linux-x86-64.so.2

# expect FILE LOADER_OPTION...
expect() {
  want=$folder/$1
  shift
  output=$("$loader" "$@" --library-path "$folder" "$program")
  echo "$output"
  [ "$(echo "$output" | head -n 1)" = "$want" ] || { echo "expected $want" >&2; exit 1; }
}

best=
if [ "$has_v3" = yes ] && "$loader" --help | grep -q 'x86-64-v3 (supported, searched)'; then
  best=glibc-hwcaps/x86-64-v3/
fi
expect "${best}libtolkcolor.so.2022"
record=$(echo "$output" | tail -n 1)
expect libtolkcolor.so.2022 --glibc-hwcaps-mask x86-64-v2
[ "$(echo "$output" | tail -n 1)" = "$record" ] || { echo "the records differ" >&2; exit 1; }
# The same for a process that is told to go without AVX2.
export GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2
expect libtolkcolor.so.2022
