# Changing connections.
load helper
load household

@test "set changes a connection selected by name, path or number" {
  make_three_connections
  expect 0 wan set Internet --vlan 110 --bind-lan LAN3
  [ "$output" = 'Changed connection "Internet"' ]
  expect 0 wan set 1.1 --mtu 1400
  expect 0 wan set InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1 --nat off
  expect 0 wan show Internet
  has "110"
  has "LAN3"
  has "1400"
  expect 0 wan show Internet --show-secrets
  has "correct-horse"
}

@test "released ports return to the LAN bridge" {
  make_three_connections
  expect 0 wan set Internet --bind-lan=
  expect 0 wan ports Internet
  has_not "bind_lan"
  expect 0 wan ports --json
  [ "$(grep -c '"use": "free"' <<<"$output")" -eq 7 ]
}

@test "options may come before or after the connection, lists with commas or repeated" {
  make_three_connections
  expect 0 wan set --bind-lan LAN2 --vlan 110 --bind-lan LAN3 Internet
  expect 0 wan show Internet
  has "LAN2 LAN3"
  has "110"
  expect_unchanged 2 wan set Internet --bind-lan LAN1 LAN2
  expect 0 wan set Internet --bind-lan ''
}

@test "a connection can be named like a command or an option" {
  expect 0 wan create --name show --vlan 10
  expect 0 wan create --name=--json --vlan 20
  expect 0 wan show show
  has "1.1"
  expect 0 wan show -- --json
  has "1.2"
}

@test "without an option nothing is changed and nothing is committed" {
  make_three_connections
  for connection in Internet Management Television; do
    expect_unchanged 0 wan set "$connection"
    [ "$output" = "No change: everything is already as requested" ]
    expect 0 wan set "$connection" --dry-run
    has "none"
  done
}

@test "a request that is already fulfilled is no change" {
  make_three_connections
  expect 0 wan set Internet --vlan 100 --json
  has '"result": "no-change"'
}

@test "a dry run shows every write in order, and the difference, and changes nothing" {
  make_three_connections
  expect_unchanged 0 wan set Internet --vlan 110 --dry-run
  has "Writes, in order:"
  has 'VLANID = "110", was "100"'
  has_not "as before"
  has "Dry run: nothing was changed"
  has_not "correct-horse"
  expect_unchanged 0 wan set Internet --vlan 110 --dry-run --json
  has '"result": "dry-run"'
  has '"plan": ['
  has '"difference": {'
  [ "$(grep -c '"before": "100"' <<<"$output")" -eq "$(grep -c '"after": "110"' <<<"$output")" ]
  [ "$(grep -A 1 '"before": "100"' <<<"$output" | grep -c '"after": "110"')" -ge 2 ]
  has_not '"after": "100"'
}

@test "a plain field is one write in each object that holds it and has another text" {
  make_three_connections
  local device=InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1
  expect_unchanged 0 wan set Internet --stp on --dry-run
  [ "${lines[1]}" = "1  set  $device.X_CT-COM_STPEnable = \"true\", was \"false\"" ]
  [ "${lines[2]}" = "Difference:" ]
  expect_unchanged 0 wan set Internet --service VOIP --dry-run
  [ "$(grep -c '  set  ' <<<"$output")" -eq 3 ]
  edit_tree set "$device.WANIPConnection.1.X_CT-COM_ServiceList" VOIP
  expect_unchanged 0 wan set Internet --service VOIP --dry-run
  [ "$(grep -c '  set  ' <<<"$output")" -eq 2 ]
}

@test "--verbose also shows the writes that change nothing" {
  make_three_connections
  expect_unchanged 0 wan set Internet --vlan 110 --dry-run
  has "more change nothing; -v shows them"
  has_not "Password"
  expect_unchanged 0 -v wan set Internet --vlan 110 --dry-run
  has 'Password = "********", as before'
  has_not "more change nothing"
  has_not "correct-horse"
  expect_unchanged 0 -v wan set Internet --vlan 110 --dry-run --json
  has ".Password"
}

@test "the management connection is only changed with --yes or --confirm" {
  make_three_connections
  expect_unchanged 8 wan set Management --vlan 210
  has "carries the management service" "$stderr"
  has "--confirm SECONDS" "$stderr"
  expect_unchanged 0 wan set Management --vlan 200
  expect_unchanged 0 wan set Management --vlan 210 --dry-run
  expect 0 wan set Management --vlan 210 --yes
  # Also when it stops to carry the service, or another one begins to.
  expect_unchanged 8 wan set Management --service OTHER
  expect 0 wan set Management --service OTHER --yes
  expect_unchanged 8 wan set Television --service TR069
}

@test "while a change waits for confirmation, no other is accepted" {
  make_three_connections
  expect 0 wan set Management --vlan 210 --confirm 600
  has "reverted in 600 seconds"
  expect_unchanged 6 wan set Internet --mtu 1400
  has "is still waiting for confirmation" "$stderr"
  expect_unchanged 6 wan set Internet --mtu 1400 --dry-run
}

@test "a change that is not confirmed in time is reverted" {
  make_three_connections
  expect 0 wan set Internet --vlan 110 --confirm 1
  has '1 seconds'
  sleep 1.2
  expect 0 wan list
  has "100"
  has_not "110"
}

@test "the time to confirm must be 1 second to 1 day" {
  make_three_connections
  expect_unchanged 2 wan set Internet --mtu 1400 --confirm 0
  expect_unchanged 2 wan set Internet --mtu 1400 --confirm 86401
}

@test "a missing connection: similar names" {
  make_three_connections
  expect_unchanged 3 wan set Internt --vlan 110
  has 'did you mean "Internet"' "$stderr"
  expect_unchanged 3 wan set 1.9 --vlan 110
  expect_unchanged 3 wan set InternetGatewayDevice.WANDevice.1.WANConnectionDevice.9. --vlan 110
}

@test "all problems of a change are reported at once" {
  make_three_connections
  expect_unchanged 2 wan set Internet --vlan x --name Television --bind-wan LAN7
  has "vlan" "$stderr"
  has 'there is a connection "Television" already' "$stderr"
  has "LAN7" "$stderr"
  expect_unchanged 2 wan set Internet --access 3G
}

@test "a new mode keeps its own object's servers, and has its own requirements" {
  make_three_connections
  expect_unchanged 2 wan set Internet --mode static
  has "needs an address" "$stderr"
  expect 0 wan set Internet --mode static --address 192.0.2.10 --mask 255.255.255.0 \
    --gateway 192.0.2.1 --dns 192.0.2.53
  expect 0 wan set Internet --mode dhcp
  expect 0 wan set Internet --mode static
  expect 0 wan show Internet --json
  has '"192.0.2.53"'
}

@test "the VLANs and ports of other connections are left alone" {
  make_three_connections
  expect_unchanged 4 wan set Internet --vlan 300
  expect_unchanged 4 wan set Internet --bind-wan LAN4
  expect 0 wan set Internet --vlan 300 --force
  has "overrides this" "$stderr"
  # The VLAN is shared now; a change of something else is not held up by that.
  expect 0 wan set Internet --mtu 1400
  has "as before" "$stderr"
}

@test "what show prints is accepted as a description, including the password" {
  make_three_connections
  for connection in Internet Management Television; do
    igdctl wan show "$connection" --json >"$BATS_TEST_TMPDIR/shown.json"
    expect_unchanged 0 wan set "$connection" --from "$BATS_TEST_TMPDIR/shown.json"
    [ "$output" = "No change: everything is already as requested" ]
    igdctl wan show "$connection" --json --show-secrets >"$BATS_TEST_TMPDIR/shown.json"
    expect_unchanged 0 wan set "$connection" --from "$BATS_TEST_TMPDIR/shown.json"
  done
}
