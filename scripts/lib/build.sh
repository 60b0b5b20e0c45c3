# shellcheck shell=bash disable=SC2154
# Configuring and building quietly: what CMake and Ninja say is shown only when they fail. Needs $root.

# logged NAME COMMAND...: runs the command in the source folder, its output kept in build/NAME.log.
logged() {
  local log=$root/build/$1.log
  shift
  mkdir -p "$root/build"
  (cd "$root" && "$@") >"$log" 2>&1 </dev/null && return
  cat "$log" >&2
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
