# Shared by the sessions of this folder: `load helper`.
#
# Each test has a store of its own. IGDCTL and IGDCTL_GATEWAY name the programs; ctest sets them.

bats_require_minimum_version 1.5.0

setup() {
  export IGD_STORE=$BATS_TEST_TMPDIR/gateway.db
  unset COLUMNS NO_COLOR
}

igdctl() { "$IGDCTL" "$@"; }
igdctl_gateway() { "$IGDCTL_GATEWAY" "$@"; }

# The state of the store, whatever led to it: for "nothing changed".
tree_now() { igdctl --json wan list; }

# Runs igdctl; the test fails unless it ends with this code. Results are in $output, messages in
# $stderr.
expect() {
  local code=$1
  shift
  run --separate-stderr igdctl "$@"
  if [ "$status" -ne "$code" ]; then
    printf 'exit code %s, not %s: igdctl %s\n%s\n%s\n' \
      "$status" "$code" "$*" "$output" "${stderr:-}" >&2
    return 1
  fi
}

# The test fails unless the text, $output without another, holds these words.
has() {
  local text=${2-$output}
  [[ $text == *"$1"* ]] || { printf 'no "%s" in:\n%s\n' "$1" "$text" >&2; return 1; }
}
has_not() {
  local text=${2-$output}
  [[ $text != *"$1"* ]] || { printf '"%s" in:\n%s\n' "$1" "$text" >&2; return 1; }
}
