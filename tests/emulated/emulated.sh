#!/bin/sh
# emulated.sh ABOVE_SSSE3 LOADED_LIBRARY LIBRARY_FOLDER COMMAND...: on an emulated processor that has SSSE3 and nothing above,
# later instructions die, the loader takes the base library, and the command succeeds.
set -u
above=$1 loaded=$2 folder=$3
shift 3
emulator="qemu-x86_64 -cpu Conroe"
command -v qemu-x86_64 >/dev/null || { echo "skipped: there is no qemu-x86_64 (qemu-user)"; exit 77; }

ulimit -c 0
printed=$($emulator "$above" 2>/dev/null)
status=$?
[ "$printed" = SSSE3 ] && [ $status = 132 ] || { echo "SSE4.1 does not die: \"$printed\", status $status" >&2; exit 1; }
printed=$($emulator -E LD_LIBRARY_PATH="$folder" "$loaded" | head -n 1)
[ "$printed" = "$folder/libtolkcolor.so.2022" ] || { echo "the loader took $printed" >&2; exit 1; }
exec $emulator "$@"
