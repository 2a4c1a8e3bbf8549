# shellcheck shell=bash
# What the tests of the tool share: a folder of their own, and checks that are counted.
set -uo pipefail
tool=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0 checks=0
preload=  # a library that `say` puts before all others of the tool

fail() { echo "FAILED: $*"; failures=$((failures + 1)); }

say() {  # STATUS WORDS COMMAND...: runs the tool, whose words are left in $output; 1 is every error but a crash
  local status=$1 words=$2 got=0
  shift 2
  checks=$((checks + 1))
  output=$(env ${preload:+"LD_PRELOAD=$preload"} "$tool" "$@" 2>&1 </dev/null) || got=$?
  ((got == 0 || got > 127)) || got=1
  [[ $got == "$status" && $output == *"$words"* ]] ||
    fail "tolk $*: expected status $status and \"$words\", got status $got and: $output"
}

ask() { "$tool" "$@" 2>message || fail "tolk $*: $(cat message)"; }

holds() {  # FILE HEX
  checks=$((checks + 1))
  local got
  got=$(od -An -v -tx1 "$1" | tr -d ' \n')
  [[ $got == "$2" ]] || fail "$1 holds $got, expected $2"
}

same() {
  checks=$((checks + 1))
  cmp -s "$1" "$2" || fail "$1 and $2 differ"
}

bytes() { printf '%b' "$(sed 's/../\\x&/g' <<<"$1")"; }  # HEX

# Pictures of 3x2 colours, 2x1 black and white, and 1x1 of 16 bits.
colours=ff000000ff000000ff0102037f8081c8c9ca
{ printf 'P6\n3 2\n255\n'; bytes $colours; } >six.ppm
bytes $colours >six.raw
{ printf 'P5\n2 1\n255\n'; bytes 00ff; } >gray.pgm
{ printf 'P6\n1 1\n65535\n'; bytes 010280fffe00; } >deep.ppm

beginErrors() {  # none leaves anything behind
  echo before >out.raw
  echo before >out.png
  ls >files
}

endErrors() {
  checks=$((checks + 2))
  [[ $(cat out.raw out.png) == $'before\nbefore' ]] || fail "an error changed a file"
  [[ $(ls) == "$(cat files)" ]] || fail "an error left a file: $(ls)"
}

finish() {
  echo "$((checks - failures)) passed, $failures failed"
  ((failures == 0))
}
