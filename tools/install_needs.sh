# Sourced: install_needs PACKAGE... installs those Debian packages that are missing, as root or through sudo.
install_needs() {
  local package missing=() root=() log
  for package; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ! command -v apt-get >/dev/null; then
    echo "Please install what these Debian packages hold (there is no apt-get here): ${missing[*]}" >&2
    return 1
  fi
  if ((EUID != 0)); then
    command -v sudo >/dev/null || { echo "As root, please run: apt-get install ${missing[*]}" >&2; return 1; }
    root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  log=$(mktemp)
  if ! { "${root[@]}" apt-get update &&
         "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"; } \
       >"$log" 2>&1 </dev/null; then
    tail -n 20 "$log" >&2
    echo "Could not install ${missing[*]}; the last lines of apt-get are above." >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}
