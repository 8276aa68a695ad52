# Scripts that describe the desired state.
load helper

describe() { printf '%s\n' "$1" >"$BATS_TEST_TMPDIR/wan.json"; }
ensure() { expect "$1" wan ensure --from "$BATS_TEST_TMPDIR/wan.json" "${@:2}"; }

@test "ensure creates, then changes, then does nothing" {
  describe '{"name": "Voice", "service": ["VOIP"], "vlan": 400, "priority": 6}'
  ensure 0 --json
  has '"result": "done"'
  ensure 0 --json
  has '"result": "no-change"'
  describe '{"name": "Voice", "vlan": 410}'
  ensure 0 --json
  has '"result": "done"'
  ensure 0 --json
  has '"result": "no-change"'
}

@test "no change is no commit" {
  describe '{"name": "Voice", "vlan": 400}'
  ensure 0
  local before
  before=$(kept_in_store)
  ensure 0
  [ "$output" = "No change: everything is already as requested" ]
  [ "$before" = "$(kept_in_store)" ]
  ensure 0 --mtu 1400  # what is held here does change with a commit
  [ "$before" != "$(kept_in_store)" ]
}

@test "ensure is idempotent for an untagged connection with a priority" {
  describe '{"name": "Voice", "vlan": 0, "priority": 6}'
  ensure 0
  ensure 0 --json
  has '"result": "no-change"'
}

@test "several at once: all of them or none" {
  describe '[{"name": "A", "vlan": 10}, {"name": "B", "vlan": 20, "service": ["VOIP"]}]'
  ensure 0 --json
  has_not '"path"'
  expect 0 wan list
  has "A "
  has "B "
  describe '[{"name": "A", "vlan": 11}, {"name": "C", "vlan": 20}]'
  expect_unchanged 4 wan ensure --from "$BATS_TEST_TMPDIR/wan.json"
  describe '[{"name": "A", "vlan": 11}, {"name": "C", "vlan": 5000}]'
  expect_unchanged 2 wan ensure --from "$BATS_TEST_TMPDIR/wan.json"
  has "description 2: vlan is 5000" "$stderr"
  describe '[{"name": "A", "vlan": 20}, {"name": "B", "vlan": 10}]'
  expect_unchanged 4 wan ensure --from "$BATS_TEST_TMPDIR/wan.json"
}

@test "a connection takes the port that an earlier one releases" {
  describe '[{"name": "A", "vlan": 10, "bind_lan": ["LAN1"]}, {"name": "B", "vlan": 20}]'
  ensure 0
  describe '[{"name": "A", "bind_lan": []}, {"name": "B", "bind_lan": ["LAN1"]}]'
  ensure 0
  expect 0 wan ports B
  has "LAN1"
  ensure 0 --json
  has '"result": "no-change"'
}

@test "the list of all connections is a valid description of them" {
  make_three_connections
  igdctl wan list --json --show-secrets >"$BATS_TEST_TMPDIR/wan.json"
  expect_unchanged 0 wan ensure --from "$BATS_TEST_TMPDIR/wan.json"
  [ "$output" = "No change: everything is already as requested" ]
  # On another gateway it makes the same ones.
  IGD_STORE=$BATS_TEST_TMPDIR/other.db
  ensure 0
  igdctl wan list --json --show-secrets >"$BATS_TEST_TMPDIR/other.json"
  cmp "$BATS_TEST_TMPDIR/wan.json" "$BATS_TEST_TMPDIR/other.json"
}

@test "the management connection is only changed with --yes" {
  make_three_connections
  describe '{"name": "Management", "vlan": 200}'
  ensure 0
  describe '{"name": "Management", "vlan": 210}'
  expect_unchanged 8 wan ensure --from "$BATS_TEST_TMPDIR/wan.json"
  ensure 0 --yes
  # Beside others that change it needs no consent while it stays as it is.
  describe '[{"name": "Management", "vlan": 210}, {"name": "Internet", "vlan": 110}]'
  ensure 0
}

@test "a description without a name, or a name twice" {
  describe '{"vlan": 400}'
  expect_unchanged 2 wan ensure --from "$BATS_TEST_TMPDIR/wan.json"
  describe '[{"name": "A", "vlan": 10}, {"name": "A", "vlan": 20}]'
  expect_unchanged 2 wan ensure --from "$BATS_TEST_TMPDIR/wan.json"
}

@test "options cannot be combined with several descriptions" {
  printf '[{"name": "Voice"}, {"name": "Guests"}]' >"$BATS_TEST_TMPDIR/two.json"
  expect_unchanged 2 wan ensure --from "$BATS_TEST_TMPDIR/two.json" --vlan 300
  has "several descriptions" "$stderr"
}

@test "standard input is a description or a password, not both" {
  expect_unchanged 2 wan ensure --from - --password-file - </dev/null
  has "both read standard input" "$stderr"
}
