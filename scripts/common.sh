# Shared by the scripts of this folder, which source it after `set -euo pipefail`.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '== %s\n' "$*"; }

fail() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# Configures and builds a preset; further arguments go to the configuration.
build_preset() {
  local preset=$1
  shift
  say "build/$preset: configure and build"
  (cd "$root" && cmake --preset "$preset" "$@" >/dev/null &&
    cmake --build --preset "$preset" -- --quiet)
}

test_preset() {
  local preset=$1
  shift
  say "build/$preset: test"
  (cd "$root" && ctest --preset "$preset" "$@")
}

# The same without the lines of tests that pass.
test_preset_briefly() {
  test_preset "$@" | grep -vE '^ +Start +[0-9]+: |\.   Passed  '
}

# Lists our C and C++ sources, each ended by a zero byte.
sources() {
  find "$root" \( -path "$root/build" -o -path "$root/.git" \) -prune -o \
    -type f \( -name '*.cpp' -o -name '*.cc' -o -name '*.c' -o -name '*.h' \) -print0
}
