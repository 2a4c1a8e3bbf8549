#!/bin/sh
# format.sh ROOT: all C and C++ files are as clang-format 14 writes them (to mend one: clang-format-14 -i FILE).
set -eu
cd "$1"
files=$(find . -type d \( -name '.?*' -o -name 'build*' \) -prune -o \
  \( -name '*.h' -o -name '*.cpp' -o -name '*.c' \) -print)
echo "$files" | wc -l
echo "$files" | xargs clang-format-14 --dry-run -Werror
