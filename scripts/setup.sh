# What run.sh and test.sh share: installing what is missing and building. Sourced, not run.

# need PACKAGE...: installs the Debian packages that are missing, saying which.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done
  [ "${#missing[@]}" -eq 0 ] && return
  echo "Installing Debian packages: ${missing[*]}"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  if ! command -v apt-get >/dev/null; then
    echo "There is no apt-get here; install by your system's means: ${missing[*]}"
    return 1
  fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

# What it takes to compile Kiv itself.
need_build_tools() {
  need g++ cmake ninja-build ccache tao-pegtl-dev libcli11-dev nlohmann-json3-dev
}
