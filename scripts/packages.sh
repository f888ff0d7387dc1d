# Sourced by ./run and ./test: the Debian packages that each needs, and their installation.

kRunPackages=(cmake ninja-build g++ qt6-base-dev qt6-svg-dev libqcustomplot-dev fonts-dejavu-core libcli11-dev
  libhpdf-dev)
kTestPackages=(
  ccache python3
  libgtest-dev libgmock-dev nlohmann-json3-dev librapidcheck-dev libmpfr-dev libgmp-dev poppler-utils
  clang-format-14 xvfb xauth xdotool x11-utils imagemagick
  openbox dbus-daemon at-spi2-core python3-gi gir1.2-atspi-2.0
  parallel slurm-wlm munge
  appstream desktop-file-utils dpkg-dev file libglib2.0-bin librsvg2-bin lintian man-db shared-mime-info)
kThoroughPackages=(clang-14 clang-tidy-14 libbenchmark-dev)
kWindowsCorePackages=(cmake ninja-build g++ g++-mingw-w64-x86-64-posix dpkg-dev xz-utils libcli11-dev libhpdf-dev
  libz-mingw-w64-dev)
kWindowsPackages=("${kWindowsCorePackages[@]}" qt6-base-dev libqcustomplot-dev librsvg2-bin nsis zip)
kWinePackages=(wine64 googletest nlohmann-json3-dev)
kWineWindowPackages=(xvfb xdotool openbox dbus-daemon poppler-utils imagemagick fonts-liberation)

# What must answer on a system whose packages we can't ask for.
kRunTools=(cmake ninja c++)

# need_packages PACKAGE...: installs those of them that are missing. Where that can't be done it says what to install,
# and stops if a tool of kRunTools is missing; else it goes on, since the packages may be there under other names.
need_packages() {
  local -a missing=()
  local tool
  if command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; then
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return 0
    if install_packages "${missing[@]}"; then
      return 0
    fi
    echo "These packages are missing and could not be installed: ${missing[*]}" >&2
    echo "Install them with: apt-get install ${missing[*]}" >&2
    exit 1
  fi
  for tool in "${kRunTools[@]}"; do
    command -v "$tool" >/dev/null || missing+=("$tool")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "This system has no apt-get. Please install what the following Debian packages hold: $*" >&2
  echo "Stopped, since these commands are missing: ${missing[*]}" >&2
  exit 1
}

# missing_packages PACKAGE...: those that are not installed, one a line.
missing_packages() {
  # dpkg-query fails when it doesn't know one of the names.
  local installed
  installed=$({ dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true; } |
    sed -n 's/^installed //p')
  local package
  for package in "$@"; do
    grep -qxF -- "$package" <<<"$installed" || echo "$package"
  done
}

install_packages() {
  local -a as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || return 1
    as_root=(sudo)
    [ -t 0 ] || as_root+=(-n)
  fi
  echo "Installing: $*"
  local -a apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300
    -o Acquire::Retries=3)
  local log
  log=$(mktemp)
  if "${apt[@]}" update >"$log" 2>&1 </dev/null &&
    "${apt[@]}" install -y --no-install-recommends "$@" >>"$log" 2>&1 </dev/null; then
    rm -f "$log"
    return 0
  fi
  tail -n 20 "$log" >&2
  rm -f "$log"
  return 1
}
