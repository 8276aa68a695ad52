# Removing connections, with consent.
load helper

@test "a connection is removed, and its ports return" {
  make_three_connections
  expect 0 wan remove Television
  [ "$output" = 'Removed connection "Television"' ]
  expect 0 wan list
  has_not "Television"
  expect 0 wan ports --json
  has_not "Television"
  [ "$(grep -c '"port": "LAN4"' <<<"$output")" -eq 1 ]
}

@test "the last Internet connection stays, unless forced" {
  make_three_connections
  expect_unchanged 4 wan remove Internet
  has "the last one with the service INTERNET" "$stderr"
  expect 0 wan remove Internet --force
  has "overrides this" "$stderr"
}

@test "the management connection can only be removed with --yes" {
  make_three_connections
  expect 0 wan create --name Voice --service VOIP --vlan 400
  expect_unchanged 8 wan remove Management
  expect 0 wan remove Management --yes
}

@test "the management connection stays while there is only one other" {
  expect 0 wan create --name Internet --access Ethernet --mode dhcp --vlan 100 --service INTERNET
  expect 0 wan create --name Management --access Ethernet --mode dhcp --vlan 46 --service TR069
  expect_unchanged 4 wan remove Management --yes
  has "fewer than two connections carry anything but management" "$stderr"
  has_not "the last one" "$stderr"
  expect 0 wan remove Management --yes --force
}

@test "the last connection besides the management one stays, unless forced" {
  expect 0 wan create --name Voice --access Ethernet --mode dhcp --vlan 100 --service VOIP
  expect 0 wan create --name Management --access Ethernet --mode dhcp --vlan 46 --service TR069
  expect_unchanged 4 wan remove Voice
  has '"Voice" is the last one that is not for management' "$stderr"
}

@test "a missing connection cannot be removed" {
  make_three_connections
  expect_unchanged 3 wan remove Radio
}

@test "a removal is shown first, and waits for confirmation" {
  make_three_connections
  expect_unchanged 0 wan remove Television --dry-run
  has "- InternetGatewayDevice.WANDevice.1.WANConnectionDevice.3."
  expect 0 wan remove Television --confirm 1
  sleep 1.2
  expect 0 wan show Television
}

@test "check asks without writing: a new connection, a change, a removal" {
  make_three_connections
  expect_unchanged 0 wan check --name Voice --vlan 400
  [ "$output" = "It fits" ]
  expect_unchanged 4 wan check --name Voice --vlan 100
  expect_unchanged 2 wan check --name Voice --vlan 5000
  expect_unchanged 0 wan check Internet --vlan 110
  expect_unchanged 4 wan check Internet --vlan 300 --json
  has '"verdict": 9'
  has '"can_be_forced": true'
  has '"was_there": false'
  grep -q '"message": ".*already has VLAN 300"' <<<"$output"
  expect_unchanged 0 wan check Television --removal --json
  has '"verdict": 1'
  expect_unchanged 0 wan check Television --removal
  expect_unchanged 4 wan check Internet --removal
  expect_unchanged 2 wan check --removal
  expect_unchanged 3 wan check Radio --removal
}
