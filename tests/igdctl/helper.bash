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

# Brings the store into states that igdctl would not make; edit_tree.cpp tells how.
edit_tree() { "$EDIT_TREE" "$@"; }
value_of() { edit_tree get "$1" 2>&1; }

# Internet (1.1, VLAN 100, LAN1 and LAN2 bound), Television (1.2, VLAN 200, LAN3 in its own bridge)
# and Management (1.3, VLAN 46).
household() {
  edit_tree create Internet 100 INTERNET LAN1,LAN2 -
  edit_tree create Television 200 OTHER - LAN3
  edit_tree create Management 46 TR069 - -
}

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
