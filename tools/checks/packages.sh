#!/usr/bin/env bash
# packages.sh BUILD_FOLDER EXAMPLE: the Debian packages are the same bytes twice, pass lintian, and do what they are for: in CI
# installed by apt-get and removed again, elsewhere unpacked into a folder.
set -euo pipefail
build=$1 example=$2
work=$build/packages
rm -rf "$work"
mkdir "$work"
cd "$work"

fail() {
  echo "$*" >&2
  exit 1
}

for run in first second; do
  cpack --config "$build/CPackConfig.cmake" -B "$run" >"$run.log" 2>&1 || { cat "$run.log"; exit 1; }
  rm -r "$run/_CPack_Packages"
done
diff <(cd first && sha256sum ./*.deb) <(cd second && sha256sum ./*.deb) || fail "two runs, different packages"
packages=(first/*.deb)
((${#packages[@]} == 5)) || fail "not five packages: ${packages[*]}"
lintian --allow-root --fail-on error,warning "${packages[@]}" || fail "lintian complains"
for package in "${packages[@]}"; do dpkg-deb -x "$package" unpacked; done
found=$(grep -rlF "$build" unpacked; find unpacked -name '*.gz' -exec zgrep -lF "$build" {} +) || true
[[ -z $found ]] || fail "these files hold the build's path: $found"
dpkg-deb -f first/tolkcolor-tools_*.deb Depends | grep -q 'libtolkcolor2022 (= .*libc6 .*libpng' || fail "the tool's dependencies"
[[ $(dpkg-deb -I first/libtolkcolor2022_*.deb shlibs) == "libtolkcolor 2022 libtolkcolor2022 (>= 2022.1.0)" ]] ||
  fail "shlibs"

tree=
if ((EUID == 0)) && [[ ${CI-} == true ]]; then
  apt=(apt-get -o DPkg::Lock::Timeout=300 -qq -y)
  DEBIAN_FRONTEND=noninteractive "${apt[@]}" install --no-install-recommends "${packages[@]/#/./}" >apt.log 2>&1 </dev/null ||
    { cat apt.log; exit 1; }
  trap '"${apt[@]}" purge libtolkcolor2022 libtolkcolor-dev tolkcolor-tools tolkcolor-doc python3-tolkcolor >/dev/null 2>&1 </dev/null' EXIT
  ldconfig -p | grep -q 'libtolkcolor.so.2022 ' || fail "ldconfig does not know it"
else
  tree=$work/unpacked
  folder=$(dirname "$(find "$tree/usr/lib" -name tolkcolor.pc)")/..
  export LD_LIBRARY_PATH=$folder PKG_CONFIG_PATH=$folder/pkgconfig PYTHONPATH=$tree/usr/lib/python3/dist-packages
fi
PATH=$tree/usr/bin:$PATH
[[ $(command -v tolk) == "$tree/usr/bin/tolk" ]] || fail "another tolk"
tolk version | grep -q "$tree/usr/lib/.*libtolkcolor.so.2022" || fail "the tool takes another library"
# shellcheck disable=SC2046
cc "$example" $(pkg-config --cflags --libs tolkcolor) -o example
./example | grep -qx '153 99 153 -> 199 151 101' || fail "the example's result"
/usr/bin/python3 -B -c 'import tolkcolor; assert tolkcolor.tolkGetLibVersion().versionMajor == 2022' || fail "Python"
for name in man1/tolk man1/tolk-convert man3/tolkcolor-hls man3/tolkRGBToHLS_8u_C3R; do
  [[ -s $tree/usr/share/man/$name.${name:3:1}.gz ]] || fail "no page $name"
done
