#!/usr/bin/env bash
# test_selftest.sh TOLK WRONG_LIBRARY CRASHING_LIBRARY: the self-test passes, and names what is wrong.
wrong=$(realpath "$2") crashing=$(realpath "$3")
# shellcheck source=tools/tolk/test_helpers.sh
. "$(dirname "$0")/test_helpers.sh"

places="tails and small images, rows from the bottom up, bad arguments"  # where the width is 37
namesOneFault() {  # COMMAND...
  say 1 "tolk: FAILED: not as defined: 1 of 444" "$@"
  checks=$((checks + 1))
  [[ $(grep '^tolk[A-Z]' <<<"$output") == "tolkRGBToGray_8u_C3C1R differs in $places" ]] ||
    fail "tolk $* names $output"
}

say 0 "401 functions judged by digest, 43 by bound"$'\n'"PASSED" selftest
say 0 "tolkRGBToHLS_8u_C3R is within its bounds"$'\n'"0 functions judged by digest, 1 by bound" \
  selftest rgbtohls_8u_c3r --verbose
say 0 "tolkRGBToGray_8u_AC4C1R is right"$'\n'"tolkRGBToGray_8u_C3C1R is right" selftest 'tolkRGBToGray_8u*' --verbose
say 1 "no function matches C3R?" selftest 'C3R?'

namesOneFault selftest --library "$wrong"
preload=$wrong
namesOneFault selftest
preload=
say 132 "fault in tolkRGBToGray_8u_C3C1R" selftest tolkRGBToGray_8u --library "$crashing"
say 1 "tolkRGBToGray_8u_AC4C1R is not exported" selftest tolkRGBToGray_8u_AC4C1R --library "$crashing"
say 1 "cannot load none.so" selftest --library none.so
say 1 "cannot load six.ppm" selftest --library six.ppm
say 1 "does not export tolkGetLibVersion" selftest --library "$(ldd "$tool" | grep -o '/[^ ]*libm[.]so[^ ]*')"

finish
