# What programs read: every document is as the schemas of docs/schemas say.
load helper
load household

bridges=InternetGatewayDevice.Layer2Bridging.Bridge
routes=InternetGatewayDevice.Layer3Forwarding.Forwarding
wan=InternetGatewayDevice.WANDevice.1.WANConnectionDevice
check_json=$BATS_TEST_DIRNAME/check_json.py

# Runs igdctl --json, which ends with this code, and keeps the document for `fit`.
keep() {
  local code=$1
  shift
  expect "$code" --json "$@"
  keep_text "$output"
}
keep_text() {
  mkdir -p "$BATS_TEST_TMPDIR/documents"
  printf '%s\n' "$1" >"$(mktemp "$BATS_TEST_TMPDIR/documents/XXXXXX")"
}

# Everything that was kept is as its schema says; prints the kinds.
fit() { "$check_json" documents "$BATS_TEST_TMPDIR"/documents/*; }

add_route() {
  edit_tree add "$routes."
  edit_tree set "$routes.$1.DestIPAddress" "$2"
  edit_tree set "$routes.$1.DestSubnetMask" "$3"
  edit_tree set "$routes.$1.Interface" "$4"
}

# Bridges, ports, connections and routes that have come apart.
come_apart() {
  household
  edit_tree create Spare 0 VOIP,TR069 - -
  edit_tree add "$bridges."
  edit_tree set "$bridges.6.BridgeName" br_9_9
  edit_tree add "$bridges.6.Port."
  edit_tree set "$bridges.6.Port.1.PortInterface" LAN4
  edit_tree delete "$bridges.2."
  edit_tree set "$bridges.3.VLANID" 5000
  edit_tree set "$bridges.1.Port.8.X_ZYN_DependWanName" "$wan.9."
  edit_tree set "$wan.2.WANIPConnection.2.Enable" false
  edit_tree set "$wan.1.WANPPPConnection.1.Enable" true
  edit_tree set "$wan.2.WANIPConnection.1.Name" Internet
  add_route 1 198.51.100.7 255.255.255.0 "$wan.9."
  add_route 2 nowhere 255.0.255.0 ""
}

@test "every kind of document matches its schema" {
  make_three_connections
  keep 0 wan list
  keep 0 wan show Internet
  keep 0 wan status
  keep 0 wan ports
  keep 0 wan check Internet --vlan 110
  keep 0 bridge list
  keep 0 bridge show internet
  keep 0 bridge of LAN1
  keep 0 vlan free
  keep 0 topology
  keep 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  keep 0 route add 203.0.113.0/24 --connection Internet --disabled
  keep 0 route list
  keep 0 acs show
  keep 0 lan show
  keep 0 doctor
  keep 0 tree get Layer2Bridging.Bridge.1.VLANID ManagementServer.Password
  keep 0 tree dump
  keep 0 tree find Password
  keep 0 tree list Layer2Bridging
  keep 0 store path
  keep 0 store export
  keep 0 store checkpoint first
  keep 0 store checkpoint list
  keep 0 store history
  keep 0 store diff first
  run --separate-stderr fit
  [ "$status" -eq 0 ] || { printf '%s\n' "$stderr" >&2; return 1; }
  [ "$output" = "$("$check_json" kinds)" ]
}

@test "a gateway in factory state" {
  local command
  for command in "wan list" "wan status" "wan ports" "bridge list" topology "route list" \
    "acs show" "lan show" doctor "store path" "store checkpoint list" "store history" "store diff" \
    "tree list" "tree list LANDevice.1" "tree list Layer2Bridging.Bridge"; do
    # shellcheck disable=SC2086  # a command and its arguments
    keep 0 $command
  done
  fit
}

@test "a gateway with every kind of problem" {
  come_apart
  keep 10 doctor
  [ "$(grep -c '"finding"' <<<"$output")" -ge 10 ]
  keep 0 wan list
  has '"vlan": 5000'
  keep 0 wan status
  keep 0 wan ports
  keep 0 bridge list
  keep 0 bridge of LAN4
  keep 0 topology
  has '"missing": true'
  keep 0 route list
  has '"prefix": null'
  fit
}

@test "checks that pass and checks that fail" {
  make_three_connections
  keep 0 wan check --name Voice --vlan 400
  keep 4 wan check Internet --vlan 300
  has '"can_be_forced"'
  keep 0 wan check Television --removal
  igdctl wan remove Television
  keep 4 wan check Internet --removal
  fit
}

@test "results of changes: done, none, pending, confirmed, reverted" {
  keep 0 wan create --name Voice --service VOIP --vlan 400
  has '"path"'
  keep 0 wan create --name Other --service OTHER --vlan 420
  keep 0 wan set Voice --mtu 1400
  keep 0 wan set Voice --mtu 1400
  has '"no-change"'
  keep 0 wan set Voice --vlan 410 --confirm 60
  has '"pending"'
  keep 0 store history
  has '"milliseconds_left"'
  keep 0 store confirm
  keep 0 wan remove Voice --confirm 60
  keep 0 store revert
  keep 0 tree set DeviceInfo.Manufacturer Somebody --force
  has 'read-only'
  keep 0 acs set --url https://acs.example.net
  keep 0 store checkpoint first
  keep 0 store history
  keep 0 store restore @1
  keep 0 store diff first @1
  keep 0 store checkpoint delete first
  fit
}

@test "dry runs: every kind of write" {
  make_three_connections
  igdctl store export "$BATS_TEST_TMPDIR/dump.csv"
  keep 0 wan create --name Voice --vlan 400 --dry-run
  has '"do": "add"'
  has '"do": "set"'
  keep 0 wan remove Television --dry-run
  has '"do": "delete"'
  igdctl wan remove Television
  keep 0 store import "$BATS_TEST_TMPDIR/dump.csv" --dry-run
  has '"do": "replace"'
  keep 0 tree set Layer2Bridging.Bridge.1.BridgeName internet --dry-run
  has '"plan": []'
  fit
}

@test "exports and imports" {
  cat >"$BATS_TEST_TMPDIR/dump.csv" <<'END'
Parameter,Object,Writable,Value,Value type
InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries,false,false,5,xsd:unsignedInt
InternetGatewayDevice.Layer2Bridging.Bridge.1,true,true,,
InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeEnable,false,true,TRUE,xsd:boolean
InternetGatewayDevice.X_Own.Colour,false,true,red,xsd:colour
DeviceID.ID,false,false,1,xsd:string
END
  keep 0 store import "$BATS_TEST_TMPDIR/dump.csv"
  local kind
  for kind in boolean count extension type foreign; do has "\"kind\": \"$kind\""; done
  keep 0 tree find X_Own
  keep 0 tree list X_Own
  keep 0 store export "$BATS_TEST_TMPDIR/out.csv"
  keep 0 store export "$BATS_TEST_TMPDIR/out.json"
  keep 0 store export
  fit
}

@test "secrets, and values that are not text" {
  make_three_connections
  igdctl tree set Layer2Bridging.Bridge.1.BridgeName=$'a\xffb'
  printf 'hush' | igdctl acs set --password-file -
  local command
  for command in "wan show Internet" "wan list" "acs show" "tree dump" "tree find Password" \
    "tree list ManagementServer" "store diff" "bridge list" "store export"; do
    # shellcheck disable=SC2086  # a command and its arguments
    keep 0 $command
    # shellcheck disable=SC2086
    keep 0 --show-secrets $command
  done
  keep 0 tree get Layer2Bridging.Bridge.1.BridgeName
  has '"value_hex": "61ff62"'
  fit
}

@test "the gateway build" {
  make_three_connections
  local command
  for command in "wan list" "wan status" "wan ports" "bridge list" topology "route list" \
    "acs show" "lan show" doctor "wan ensure --name Television --vlan 300" \
    "acs set --username gw"; do
    # shellcheck disable=SC2086  # a command and its arguments
    run --separate-stderr igdctl_gateway --json $command
    [ "$status" -eq 0 ]
    keep_text "$output"
  done
  run --separate-stderr igdctl_gateway --json tree get Layer2Bridging.Bridge.1.VLANID
  [ "$status" -eq 0 ]
  has_not '"type"'
  keep_text "$output"
  fit
}
