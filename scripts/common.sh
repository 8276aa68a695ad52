# Shared by the scripts of this folder, which source it after `set -euo pipefail`.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# A compiler cache is used where there is one; CCACHE_DISABLE=1 does without.
if command -v ccache >/dev/null; then
  export CMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER-ccache}
  export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
fi

say() { printf '== %s\n' "$*"; }

fail() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# Runs a command while no other script works on the same folder of build/.
with_folder() {
  local folder=$root/build/$1
  shift
  mkdir -p "$root/build"
  (
    flock 9
    "$@" 9>&-
  ) 9>"$folder.lock"
}

configure_and_build() {
  local folder=$1 preset=$2
  shift 2
  cd "$root" && cmake --preset "$preset" -B "build/$folder" "$@" >/dev/null &&
    cmake --build "build/$folder" --target "${targets[@]:-all}" -- --quiet
}

# Configures and builds a preset, or the targets of it that the array `targets` names; further
# arguments go to the configuration.
build_preset() { build_variant "$1" "$@"; }

# build_variant FOLDER PRESET [ARGUMENT]...: the same in a folder that is not named as the preset.
build_variant() {
  say "build/$1: configure and build"
  with_folder "$1" configure_and_build "$@"
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

# figure SUBJECT NAME VALUE: leaves a figure that was measured for scripts/figures, with the commit.
figure() {
  mkdir -p "$root/build/figures"
  printf '%s\t%s\t%s\n' "$2" "$3" "$(git -C "$root" log -1 --format='%h%x09%cs')" \
    >>"$root/build/figures/$1"
}

# Lists our C and C++ sources, each ended by a zero byte.
sources() {
  find "$root" \( -path "$root/build" -o -path "$root/.git" \) -prune -o \
    -type f \( -name '*.cpp' -o -name '*.cc' -o -name '*.c' -o -name '*.h' \) -print0
}
