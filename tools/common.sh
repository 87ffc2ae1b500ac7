# What the commands of this project share; sourced by ./tour, ./check and tools/install-dependencies.
# Sets `root`, the project's directory.
# shellcheck shell=bash
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

say() { printf '==> %s\n' "$*"; }
warn() { printf '==> note: %s\n' "$*" >&2; }
fail() {
  printf '==> %s\n' "$*" >&2
  exit 1
}

# step WHAT COMMAND...: says what is done, does it; a failure ends the script with the same words.
step() {
  local what=$1
  shift
  say "$what"
  "$@" || fail "failed: $what ($*)"
}

jobs() { nproc 2>/dev/null || echo 2; }

# configure PRESET: cheap when nothing has changed; its output is shown where it fails.
configure() {
  local log
  log=$(mktemp)
  say "configuring build/$1"
  if ! (cd "$root" && cmake --preset "$1" >"$log" 2>&1); then
    cat "$log" >&2
    rm -f "$log"
    fail "failed: cmake --preset $1"
  fi
  rm -f "$log"
}

# build PRESET [TARGET]
build() {
  step "building ${2:-everything} in build/$1" \
    cmake --build "$root/build/$1" --parallel "$(jobs)" ${2:+--target "$2"}
}

# After a run through sudo the build directory belongs to whom the project belongs to, so that the next run needs no sudo.
give_build_back() {
  if [ "$(id -u)" = 0 ] && [ -n "${SUDO_UID:-}" ] && [ "$(stat -c %u "$root")" = "$SUDO_UID" ] && [ -d "$root/build" ]; then
    chown -R --no-dereference "$SUDO_UID:${SUDO_GID:-$SUDO_UID}" "$root/build"
  fi
}
trap give_build_back EXIT
