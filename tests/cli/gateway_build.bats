# The build that a gateway has: it writes at once and commits once.
load helper

# Runs the gateway's build; like expect().
expect_gateway() {
  local code=$1
  shift
  run --separate-stderr igdctl_gateway "$@"
  [ "$status" -eq "$code" ] || { printf '%s: %s\n%s\n' "$status" "$*" "$stderr" >&2; return 1; }
}

@test "it creates, changes and removes connections" {
  expect_gateway 0 wan create --name Voice --service VOIP --vlan 400
  expect_gateway 0 wan create --name Other --service OTHER --vlan 410
  expect_gateway 0 wan set Voice --mtu 1400
  expect 0 wan show Voice
  has "1400"
  expect_gateway 0 wan remove Voice
  expect 0 wan list
  has_not "Voice"
}

@test "it refuses what needs a store, by name and with a reason" {
  expect_gateway 0 wan create --name Voice --vlan 400
  for option in --dry-run "--confirm 60"; do
    # shellcheck disable=SC2086
    expect_gateway 7 wan set Voice --vlan 410 $option
    has "${option%% *} needs a store" "$stderr"
  done
  expect 0 wan list
  has "400"
  expect_gateway 0 wan set --help
  has "not in this build"
}

@test "it needs --yes before it touches the management connection" {
  expect_gateway 0 wan create --name Management --service TR069 --vlan 200
  expect_gateway 8 wan set Management --vlan 210
  has "go ahead with --yes" "$stderr"
  expect_gateway 0 wan set Management --vlan 200
  expect_gateway 0 wan set Management --vlan 210 --yes
}

@test "it checks as strictly, before the first write" {
  make_three_connections
  expect_gateway 2 wan set Internet --vlan 5000
  expect_gateway 4 wan set Internet --vlan 300
  expect_gateway 3 wan set Radio --vlan 300
  expect_gateway 4 wan remove Internet
  expect_gateway 0 wan ensure --name Television --vlan 300 --json
  has '"result": "no-change"'
}

@test "without a tree there is nothing to work on" {
  export IGD_STORE=$BATS_TEST_TMPDIR/nowhere/gateway.db
  expect_gateway 5 wan create --name Voice
  has "no configuration tree" "$stderr"
}
