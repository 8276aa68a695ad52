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
  says_what_is_wrong_first
}

# The line of a message says what is wrong; what to do stands below it.
says_what_is_wrong_first() {
  local what_to_do='(add|choose|create|give|go ahead|keep|leave|put|remove|take|try|use) '
  [[ ! $'\n'${stderr-} =~ $'\n'"igdctl: "$what_to_do ]] ||
    { printf 'a message begins with what to do:\n%s\n' "$stderr" >&2; return 1; }
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

# Roots without /dev/pts have none.
needs_pseudo_terminal() {
  script -qec true /dev/null </dev/null >/dev/null 2>&1 || skip "no pseudo-terminal can be made here"
}

# What igdctl shows on a pseudo-terminal of so many columns, carriage returns taken out.
shown_on_terminal() {
  local columns=$1
  shift
  script -qec "stty cols $columns; '$IGDCTL' $*" /dev/null </dev/null | tr -d '\r'
}

# Three connections as an installer makes them: Internet (1.1), Management (1.2), Television (1.3).
# They are made once for each file of tests; each test gets a copy of the store.
make_three_connections() {
  local made=$BATS_FILE_TMPDIR/three_connections.db
  [ -e "$made" ] || IGD_STORE=$made make_them
  local part
  for part in "$made"*; do cp "$part" "$IGD_STORE${part#"$made"}"; done
}

make_them() {
  printf 'correct-horse\n' >"$BATS_TEST_TMPDIR/password"
  igdctl --quiet wan create --name Internet --mode pppoe --user household@example.net \
    --password-file "$BATS_TEST_TMPDIR/password" --vlan 100 --bind-lan LAN1,LAN2,WLAN1
  igdctl --quiet wan create --name Management --service TR069 --vlan 200 --option60 gateway \
    --remote-management on
  igdctl --quiet wan create --name Television --class bridged --service OTHER --vlan 300 \
    --priority 5 --bind-wan LAN4 --port-option60 LAN4=set-top
}

# What a store keeps, as one line: a commit changes its file or the log beside it.
kept_in_store() { cat "$IGD_STORE" "$IGD_STORE-wal" | sha256sum; }

# Runs igdctl and holds that it ends with this code and that nothing was committed.
expect_unchanged() {
  local before
  [ -e "$IGD_STORE" ] || igdctl wan list >/dev/null
  before=$(kept_in_store)
  expect "$@"
  [ "$before" = "$(kept_in_store)" ] || { printf 'it changed: %s\n' "$*" >&2; return 1; }
}
