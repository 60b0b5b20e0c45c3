# shellcheck shell=bash disable=SC2034,SC2154
# The Debian packages each kind of work needs, and how to get those that are missing. Needs
# $root.
# shellcheck source=scripts/lib/progress.sh
source "$root/scripts/lib/progress.sh"

packages_run=(
  build-essential ccache cmake git libcli11-dev libicu-dev libqt6svg6 libseccomp-dev ninja-build nlohmann-json3-dev
  pkg-config python3 qt6-base-dev qt6-l10n-tools qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools
  qt6-translations-l10n uuid-dev
)
packages_test=(
  at-spi2-core clang-14 dbus dbus-daemon fonts-dejavu-core fonts-noto-core gir1.2-atspi-2.0 gvfs
  gvfs-daemons libbenchmark-dev libclang-rt-14-dev libglib2.0-bin libgmock-dev libgtest-dev openbox
  python3-gi trash-cli util-linux xdotool xvfb
)
packages_bench=(gdu libbenchmark-dev libglib2.0-bin ncdu trash-cli)
packages_pictures=(fonts-noto-core imagemagick)
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

# apt_get ARGUMENT...: runs apt-get as root, with what it says in build/packages.log. How far it has
# come is shown. The log is opened by who runs this, as root may have no right to the folder. An
# installation that was interrupted is finished first: apt-get refuses to do anything before that.
apt_get() {
  local as_root=()
  [[ $EUID -eq 0 ]] || as_root=(sudo)
  # shellcheck disable=SC2016
  "${as_root[@]}" sh -c 'exec 3>&1 >&2 </dev/null
    export DEBIAN_FRONTEND=noninteractive
    dpkg --configure -a
    exec apt-get -qq -o DPkg::Lock::Timeout=300 \
      -o Dpkg::Use-Pty=0 -o APT::Status-Fd=3 "$@"' sh "$@" 2>>"$root/build/packages.log" |
    sed -un 's/^dlstatus:[^:]*:\([0-9]*\).*/downloading: \1 %/p
             s/^pmstatus:[^:]*:\([0-9]*\).*/installing: \1 %/p' | show_progress
}

# ensure_packages PURPOSE PACKAGE...: installs what is missing. All it says goes to standard error.
ensure_packages() {
  local purpose=$1
  shift
  if ! command -v dpkg-query >/dev/null; then
    say "Not a Debian system, so these are taken to be installed in some other way: $*"
    return
  fi
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [[ ${#missing[@]} -gt 0 ]] || return 0
  local by_hand="  apt-get update && apt-get install --no-install-recommends ${missing[*]}"
  if [[ $EUID -ne 0 ]] && ! command -v sudo >/dev/null; then
    say "Packages are missing, and there is no sudo to install them with. As root, run:"
    say "$by_hand"
    return 1
  fi
  say "Installing $(plural ${#missing[@]} "Debian package") for $purpose: ${missing[*]}"
  mkdir -p "$root/build"
  : >"$root/build/packages.log"
  apt_get update || say "The package lists are old: they could not be refreshed."
  apt_get install -y --no-install-recommends "${missing[@]}" && return
  grep -E '^[EW]: ' "$root/build/packages.log" >&2 || tail -n 5 "$root/build/packages.log" >&2
  say "The packages could not be installed; build/packages.log says more. As root, run:"
  say "$by_hand"
  return 1
}
