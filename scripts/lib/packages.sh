# shellcheck shell=bash disable=SC2034
# The Debian packages each kind of work needs, and how to get those that are missing.

packages_run=(
  build-essential ccache cmake git libcli11-dev libicu-dev libqt6svg6 libseccomp-dev ninja-build nlohmann-json3-dev
  pkg-config python3 qt6-base-dev qt6-svg-dev uuid-dev
)
packages_test=(
  at-spi2-core bash-completion dbus dbus-daemon fish fonts-dejavu-core gir1.2-atspi-2.0 gvfs
  gvfs-daemons libglib2.0-bin libbenchmark-dev libgmock-dev libgtest-dev openbox python3-gi trash-cli
  util-linux xdotool xvfb zsh
)
packages_bench=(gdu libbenchmark-dev libglib2.0-bin ncdu trash-cli)
packages_fuzz=(clang-14 libclang-rt-14-dev)
packages_lint=(clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev)
packages_package=(appstream desktop-file-utils dpkg-dev file lintian man-db)

# missing_packages PACKAGE...: those that are not installed, one a line.
missing_packages() {
  local installed
  installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
    sed -n 's/^installed //p') || true
  comm -23 <(printf '%s\n' "$@" | sort -u) <(sort -u <<<"$installed")
}

# ensure_packages PACKAGE...: installs what is missing. All it says goes to standard error.
ensure_packages() {
  if ! command -v dpkg-query >/dev/null; then
    echo "Not a Debian system, so these are taken to be installed in some other way: $*" >&2
    return
  fi
  local missing as_root=()
  mapfile -t missing < <(missing_packages "$@")
  [[ ${#missing[@]} -gt 0 ]] || return 0
  local by_hand="  apt-get update && apt-get install --no-install-recommends ${missing[*]}"
  if [[ $EUID -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
      echo "Packages are missing, and there is no sudo to install them with. As root, run:" >&2
      echo "$by_hand" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}" >&2
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq
    -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0)
  "${apt[@]}" update >&2 || echo "The package lists are old: they could not be refreshed." >&2
  "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >&2 </dev/null && return
  echo "The packages could not be installed. As root, run:" >&2
  echo "$by_hand" >&2
  return 1
}
