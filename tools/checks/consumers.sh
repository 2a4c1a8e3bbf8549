#!/bin/sh
# consumers.sh PROJECT EXAMPLE WORK PREFIX LIBRARY_FOLDER: builds the example against the tree installed in PREFIX, from C
# and C++, by CMake and by pkg-config; all programs print what is known.
set -eu
project=$1 example=$2 work=$3 prefix=$4 folder=$5
rm -rf "$work"
cmake -S "$project" -B "$work/cmake" -DEXAMPLE="$example" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake" >/dev/null

export PKG_CONFIG_PATH="$folder/pkgconfig"
flags=$(pkg-config --cflags --libs tolkcolor)
# shellcheck disable=SC2086  # words
cc "$example" $flags -o "$work/pc_c"
# shellcheck disable=SC2086
c++ -x c++ "$example" -x none $flags -o "$work/pc_cpp"

for program in cmake/from_c cmake/from_cpp pc_c pc_cpp; do
  LD_LIBRARY_PATH=$folder "$work/$program" | tee "$work/printed"
  grep -qx '153 99 153 -> 199 151 101' "$work/printed" || { echo "$program: not the result" >&2; exit 1; }
  LD_LIBRARY_PATH=$folder ldd "$work/$program" | grep -q "$folder/.*libtolkcolor" ||
    { echo "$program: another library" >&2; exit 1; }
done
