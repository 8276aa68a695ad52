# Every kind of failure has its own exit code, and leaves nothing half done.
load helper

@test "a full disk: exit code 5, and nothing changed" {
  make_three_connections
  local before
  before=$(igdctl --json wan list)
  # What it prints goes through a pipe, to which the limit does not apply.
  run bash -c '(ulimit -f 0; "$IGDCTL" wan set Internet --vlan 110) 2>&1 | cat; exit "${PIPESTATUS[0]}"'
  [ "$status" -eq 5 ]
  has "ulimit -f"
  [ "$before" = "$(igdctl --json wan list)" ]
}

@test "a gateway whose platform refuses the commit: exit code 9, and the message says so" {
  make_three_connections
  igdctl -q wan set Television --mtu 1400 --confirm 600  # until then nothing else is committed
  run --separate-stderr igdctl_gateway wan set Internet --vlan 110
  [ "$status" -eq 9 ]
  has "may be in effect" "$stderr"
  run --separate-stderr igdctl_gateway wan remove Television
  [ "$status" -eq 9 ]
  has "did not remove" "$stderr"
}

@test "an unwritable standard output: exit code 1" {
  make_three_connections
  run --separate-stderr bash -c '"$IGDCTL" wan list >/dev/full'
  [ "$status" -eq 1 ]
  has "could not be written" "$stderr"
}

@test "an ambiguous name: exit code 2 with both paths, and nothing changed" {
  make_three_connections
  wan=InternetGatewayDevice.WANDevice.1.WANConnectionDevice
  bridges=InternetGatewayDevice.Layer2Bridging.Bridge
  igdctl -q tree set --yes "$wan.2.WANIPConnection.1.Name" Internet
  igdctl -q tree set --yes "$wan.2.WANIPConnection.2.Name" Internet
  expect_unchanged 2 wan set Internet --vlan 110
  has '"Internet" names several connections' "$stderr"
  has "$wan.1., $wan.2." "$stderr"
  expect_unchanged 2 wan ensure --name Internet --vlan 110
  has 'several connections are named "Internet"' "$stderr"
  igdctl -q tree set "$bridges.4.BridgeName" br_1_1
  expect_unchanged 2 bridge show br_1_1
  has '"br_1_1" names several bridges' "$stderr"
  has "$bridges.2., $bridges.4." "$stderr"
}
