# Creating connections.
load helper

@test "Internet over PPPoE: the name, the account, a VLAN, the ports of the household" {
  printf 'correct-horse\n' >"$BATS_TEST_TMPDIR/password"
  expect 0 wan create --name Internet --mode pppoe --user household@example.net \
    --password-file "$BATS_TEST_TMPDIR/password" --vlan 100 --bind-lan LAN1,LAN2 --bind-lan WLAN1
  [ "$output" = 'Created connection "Internet", 1.1' ]

  expect 0 wan list
  [ "${lines[0]}" = "NAME      ID   CLASS   MODE   VLAN  SERVICE   LAN PORTS        OWN PORTS  ENABLED" ]
  [ "${lines[1]}" = "Internet  1.1  routed  pppoe  100   INTERNET  LAN1 LAN2 WLAN1  -          on" ]

  expect 0 wan show Internet
  has "household@example.net"
  has_not "correct-horse"
  has "********"
  expect 0 wan show Internet --show-secrets
  has "correct-horse"
}

@test "a password is never an argument" {
  expect 2 wan create --name Internet --password secret
  has "--password" "$stderr"
}

@test "a password can come from standard input, without its line end" {
  run bash -c 'printf "correct horse \r\n" | "$IGDCTL" wan create --name Internet --mode pppoe \
    --user u --password-file -'
  [ "$status" -eq 0 ]
  expect 0 wan show Internet --show-secrets --json
  has '"password": "correct horse "'
}

@test "a static address" {
  expect 0 wan create --name Office --mode static --address 192.0.2.10 --mask 255.255.255.0 \
    --gateway 192.0.2.1 --dns 192.0.2.53,192.0.2.54 --mtu 1400
  expect 0 wan show Office --json
  has '"address": "192.0.2.10"'
  has '"192.0.2.54"'
  has '"mtu": 1400'
}

@test "a description in JSON, which options override" {
  echo '{"name": "Voice", "vlan": 400, "service": ["VOIP"], "nat": false}' >"$BATS_TEST_TMPDIR/wan.json"
  expect 0 wan create --from "$BATS_TEST_TMPDIR/wan.json" --vlan 410
  expect 0 wan show Voice --json
  has '"vlan": 410'
  has '"nat": false'
  run bash -c 'echo "{\"name\": \"Other\", \"vlan\": 420}" | "$IGDCTL" wan create --from -'
  [ "$status" -eq 0 ]
}

@test "all problems are reported at once, and nothing is created" {
  expect_unchanged 2 wan create --mode static --address 192.0.2.300 --mask 255.0.255.0 --vlan 4095 \
    --priority 8 --mtu 100 --service 'A B' --class router --nat maybe --dns x --bind-lan LAN9
  for word in address mask vlan priority mtu service class nat dns name LAN9; do
    has "$word" "$stderr"
  done
  has "give a whole number from 0 to 4094" "$stderr"
  has "give routed, bridged or routed-bridged" "$stderr"
}

@test "ambiguous names are refused" {
  expect_unchanged 2 wan create --name ''
  expect_unchanged 2 wan create --name ' x'
  expect_unchanged 2 wan create --name 1.2
  expect_unchanged 2 wan create --name InternetGatewayDevice.WANDevice.1.
  expect_unchanged 2 wan create --name $'a\nb'
  expect_unchanged 2 wan create --name "$(printf 'x%.0s' {1..256})"
}

@test "a name that exists is refused, not updated" {
  make_three_connections
  expect_unchanged 2 wan create --name Internet --vlan 500
  has 'there is a connection "Internet" already' "$stderr"
}

@test "PPPoE needs an account, and less than 1493 octets" {
  expect_unchanged 2 wan create --name Internet --mode pppoe --mtu 1500
  has "needs a user name" "$stderr"
  has "needs a password" "$stderr"
  has "PPPoE needs 8 octets" "$stderr"
}

@test "an address must be a valid host address, and its gateway in the same subnet" {
  local rest=(--name Office --mode static --mask 255.255.255.0)
  expect_unchanged 2 wan create "${rest[@]}" --address 192.0.2.0 --gateway 192.0.2.1
  expect_unchanged 2 wan create "${rest[@]}" --address 192.0.2.255 --gateway 192.0.2.1
  expect_unchanged 2 wan create "${rest[@]}" --address 127.0.0.1 --gateway 127.0.0.2
  expect_unchanged 2 wan create "${rest[@]}" --address 192.0.2.10 --gateway 198.51.100.1
  expect_unchanged 2 wan create "${rest[@]}" --address 192.0.2.10 --gateway 192.0.2.10
  expect_unchanged 2 wan create --name Office --mode dhcp --address 192.0.2.10
}

@test "a port is given once, and an uplink is not given" {
  expect_unchanged 2 wan create --name A --bind-lan LAN1,LAN1
  expect_unchanged 2 wan create --name A --bind-lan LAN1 --bind-wan LAN1
  expect_unchanged 2 wan create --name A --bind-wan LAN0
  expect_unchanged 2 wan create --name A --bind-lan LAN1 --port-option60 LAN1=x
}

@test "a VLAN of another connection: exit code 4, unless forced, which is reported" {
  make_three_connections
  expect_unchanged 4 wan create --name Second --vlan 100
  has 'connection "Internet" already has VLAN 100' "$stderr"
  has "--force" "$stderr"
  expect 0 wan create --name Second --vlan 100 --force --json
  has '"overridden": ['
  has "VLAN 100"
  has "overrides this" "$stderr"
}

@test "only one connection is untagged" {
  expect 0 wan create --name First
  expect_unchanged 4 wan create --name Second
  has "untagged" "$stderr"
}

@test "a second management connection is refused, even with a longer service list" {
  make_three_connections
  expect_unchanged 4 wan create --name Second --vlan 500 --service TR069
  expect_unchanged 4 wan create --name Second --vlan 500 --service TR069,VOIP
  has 'connection "Management"' "$stderr"
}

@test "a port of another connection is never taken, not even with --force" {
  make_three_connections
  expect_unchanged 4 wan create --name Second --vlan 500 --bind-lan LAN1 --force
  has 'port LAN1 belongs to connection "Internet"' "$stderr"
  expect_unchanged 4 wan create --name Second --vlan 500 --bind-wan LAN4
  expect_unchanged 4 wan create --name Second --vlan 100 --bind-lan LAN1
  has "port LAN1" "$stderr"
  has "VLAN 100" "$stderr"  # told at once, though it can be forced and the port cannot
}

@test "a port of another connection is not taken even if the management connection comes first" {
  expect 0 wan create --name Management --service TR069 --vlan 200
  expect 0 wan create --name Internet --vlan 100 --bind-lan LAN1
  expect_unchanged 4 wan create --name Second --vlan 500 --bind-lan LAN1
}

@test "the last port stays in the LAN bridge" {
  expect_unchanged 4 wan create --name All --class bridged --vlan 500 \
    --bind-wan LAN1,LAN2,LAN3,LAN4,WLAN1,WLAN2,WLAN3,WLAN4
  has "no port would be left" "$stderr"
  expect_unchanged 4 wan create --name All --class routed-bridged --vlan 500 \
    --bind-wan LAN1,LAN2,LAN3,LAN4,WLAN1,WLAN2,WLAN3,WLAN4
}

@test "each access type gets its uplink" {
  expect 0 wan create --name Mobile --access 3g --vlan 10
  expect 0 wan create --name Radio --access Repeator --vlan 20
  expect 0 wan ports
  has "3G0"
  has "WIFIW0"
  expect_unchanged 2 wan create --name X --access Cable --vlan 30
}

@test "a description that is not JSON, not an object, or unreadable" {
  echo '{' >"$BATS_TEST_TMPDIR/broken.json"
  echo '[]' >"$BATS_TEST_TMPDIR/none.json"
  echo '{"name": "X", "colour": 1}' >"$BATS_TEST_TMPDIR/unknown.json"
  expect_unchanged 2 wan create --from "$BATS_TEST_TMPDIR/broken.json"
  has "not JSON" "$stderr"
  echo '{"name": "X", "vlan": 1e999}' >"$BATS_TEST_TMPDIR/huge.json"
  expect_unchanged 2 wan create --from "$BATS_TEST_TMPDIR/huge.json"
  has "a number that is too large" "$stderr"
  expect_unchanged 2 wan create --from "$BATS_TEST_TMPDIR/none.json"
  expect_unchanged 2 wan create --from "$BATS_TEST_TMPDIR/unknown.json"
  has 'no "colour"' "$stderr"
  expect_unchanged 2 wan create --from "$BATS_TEST_TMPDIR/nowhere.json"
  expect_unchanged 2 wan create --from /dev/zero
  printf '%0400000d' 0 | tr 0 '[' >"$BATS_TEST_TMPDIR/deep.json"
  expect_unchanged 2 wan create --from "$BATS_TEST_TMPDIR/deep.json"
  expect_unchanged 2 wan create --name X --mode pppoe --user u --password-file /dev/zero
}

@test "a wrong value is not reported as missing as well" {
  expect_unchanged 2 wan create --name $'a\nb' --mode static --address 999.1.1.1 --mask 255.0.255.0 \
    --gateway nowhere
  [ "$(grep -c '^igdctl: ' <<<"$stderr")" -eq 4 ]
  has_not "needs a" "$stderr"
}
