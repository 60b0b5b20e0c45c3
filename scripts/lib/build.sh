# shellcheck shell=bash disable=SC2154
# Configuring and building quietly: what CMake and Ninja say is kept in build/*.log and shown only
# when they fail. Needs $root.
# shellcheck source=scripts/lib/progress.sh
source "$root/scripts/lib/progress.sh"

# logged NAME COMMAND...: runs the command in the source folder. How far Ninja has come is shown;
# when the command fails, so is everything else that was said.
logged() {
  local log=$root/build/$1.log
  shift
  mkdir -p "$root/build"
  (cd "$root" && NINJA_STATUS="[%p] " "$@") 2>&1 </dev/null | tee "$log" |
    sed -un 's/^\[ *\([0-9]*\)%\] .*/building: \1 %/p' | show_progress && return
  grep -v '^\[ *[0-9]*%\]' "$log" >&2 || true
  say "This failed. All that was said is in ${log#"$root"/}."
  return 1
}

is_configured() { [[ -e $root/build/$1/build.ninja ]]; }

# configure PRESET [VARIABLE=VALUE]...
configure() {
  local preset=$1
  shift
  logged "configure-$preset" cmake --preset "$preset" "${@/#/-D}"
}

# build PRESET [TARGET]...
build() {
  local preset=$1
  shift
  logged "build-$preset" cmake --build --preset "$preset" ${1+--target "$@"}
}

# lock_build: two scripts started at once would otherwise build into one folder at the same time.
lock_build() {
  mkdir -p "$root/build"
  exec {build_lock}>"$root/build/.lock"
  flock "$build_lock"
}

unlock_build() { exec {build_lock}>&-; }
