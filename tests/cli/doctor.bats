# Contradictions, and the commands that fix them.
load helper
load household

bridges=InternetGatewayDevice.Layer2Bridging.Bridge
routes=InternetGatewayDevice.Layer3Forwarding.Forwarding
wan=InternetGatewayDevice.WANDevice.1.WANConnectionDevice

# Every command that the doctor names, one a line.
fixing_commands() {
  igdctl doctor --json | sed -n 's/^ *"\(igdctl .*\)",\{0,1\}$/\1/p' |
    sed 's/\\\(.\)/\1/g' # what JSON escapes
}

# Runs them all, as a person would who copies them into a shell; the doctor then finds nothing.
fix_all() {
  local command
  fixing_commands >"$BATS_TEST_TMPDIR/fixes"
  [ -s "$BATS_TEST_TMPDIR/fixes" ]
  while read -r command; do
    printf '%s\n' "$command"
    eval "$command"
    # A change on trial is kept, so that the next can follow.
    if [[ $command == *--confirm* ]]; then igdctl store confirm || return 1; fi
  done <"$BATS_TEST_TMPDIR/fixes"
  expect 0 doctor
}

add_route() {
  local number
  edit_tree add "$routes."
  number=$1
  edit_tree set "$routes.$number.DestIPAddress" "$2"
  edit_tree set "$routes.$number.DestSubnetMask" "$3"
  edit_tree set "$routes.$number.GatewayIPAddress" "$4"
  edit_tree set "$routes.$number.Interface" "$5"
}

@test "a gateway that the library set up has no problems" {
  expect 0 doctor
  has "No problems in 0 connections, 1 bridge and 0 routes"
  household
  expect 0 doctor
  expect 0 doctor --json
  has '"data": []'
}

@test "a finding says where, why, and how to fix it" {
  household
  edit_tree add "$bridges."
  edit_tree set "$bridges.5.BridgeName" br_9_9
  expect 10 doctor
  [ "${lines[0]}" = 'orphan-bridge: the bridge "br_9_9" names no connection' ]
  [ "${lines[1]}" = "where  $bridges.5." ]
  [[ ${lines[2]} == "why    "* ]]
  [ "${lines[3]}" = "fix    igdctl bridge remove br_9_9" ]
  has "1 problem in 3 connections, 5 bridges and 0 routes"
  expect 10 doctor --json
  has '"finding": "orphan-bridge"'
  expect 10 doctor --quiet
  has br_9_9
}

@test "the commands name the store that was examined" {
  local another="$BATS_TEST_TMPDIR/another gateway.db"
  IGD_STORE=$another edit_tree add "$bridges."
  IGD_STORE=$another edit_tree set "$bridges.2.BridgeName" br_9_9
  expect 0 doctor
  expect 10 --store "$another" doctor
  has "fix    igdctl --store '$another' bridge remove br_9_9"
}

@test "fixing bridges and ports that no longer match" {
  household
  edit_tree add "$bridges."
  edit_tree set "$bridges.5.BridgeName" br_9_9
  edit_tree add "$bridges.5.Port."
  edit_tree set "$bridges.5.Port.1.PortInterface" LAN4
  edit_tree delete "$bridges.2."
  edit_tree set "$bridges.1.Port.8.X_ZYN_DependWanName" "$wan.9."
  [ "$(igdctl doctor --json | grep -c '"finding"')" -eq 4 ]
  fix_all
}

@test "fixing routes" {
  household
  add_route 1 198.51.100.7 255.255.255.0 192.0.2.1 ""
  add_route 2 203.0.113.9 255.255.255.0 "" "$wan.1."
  add_route 3 192.0.2.0 255.255.255.0 "" "$wan.9."
  add_route 4 nonsense 255.0.255.0 192.0.2.1 ""
  add_route 5 10.0.0.0 255.0.0.0 "" ""
  [ "$(igdctl doctor --json | grep -c '"finding"')" -eq 5 ]
  fix_all
  expect 0 route list
  [ "${#lines[@]}" -eq 3 ]
  has 198.51.100.0/24
  has 203.0.113.0/24
}

@test "an address that is not a plain word cannot run in a shell" {
  add_route 1 "\$(touch $BATS_TEST_TMPDIR/ran)" "it's" 192.0.2.1 ""
  fix_all
  [ ! -e "$BATS_TEST_TMPDIR/ran" ]
}

@test "the gateway build has a doctor too" {
  household
  edit_tree delete "$bridges.4."
  run --separate-stderr igdctl_gateway doctor
  [ "$status" -eq 10 ]
  has "fix    igdctl bridge create Management --yes"
}

@test "a VLAN beyond 4094 is named, and fixed by another one" {
  household
  edit_tree set "$bridges.1.VLANID" 4095
  edit_tree set "$bridges.2.VLANID" 4095
  edit_tree set "$bridges.3.VLANID" 4294967295
  expect 10 doctor
  has 'bad-vlan: the bridge "internet" has the VLAN "4095"'
  has 'bad-vlan: the bridge "br_1_1" has the VLAN "4095"'
  has 'bad-vlan: the bridge "br_1_2" has the VLAN "4294967295"'
  [ "$(igdctl doctor --json | grep -c '"finding": "bad-vlan"')" -eq 3 ]
  fix_all
}

# Some builds lack a group or a command.
needs() {
  [ -n "$(igdctl "$1" --help 2>/dev/null | grep "^  $2 ")" ] || skip "there is no igdctl $*"
}

@test "fixing names" {
  needs tree set
  household
  edit_tree set "$bridges.2.BridgeName" br_9_9
  edit_tree set "$bridges.1.X_ZYN_WANName" "$wan.2."
  add_route 1 198.51.100.0 255.255.255.0 192.0.2.1 "$wan.9."
  [ "$(igdctl doctor --json | grep -c '"finding"')" -eq 4 ]
  fix_all
  expect 0 route list
  has 198.51.100.0/24
}

@test "fixing connections" {
  needs wan set
  household
  edit_tree create Spare 300 VOIP,TR069 - -
  edit_tree set "$bridges.5.VLANID" 100
  edit_tree set "$wan.2.WANIPConnection.2.Enable" false
  edit_tree set "$wan.1.WANPPPConnection.1.Enable" true
  edit_tree set "$wan.2.WANIPConnection.1.Name" Internet
  [ "$(igdctl doctor --json | grep -c '"finding"')" -eq 5 ]
  fix_all
}

@test "fixing marks" {
  needs wan remove
  household
  local i
  # The numbers of connections are counted on, also past those that went.
  for i in $(seq 4 30); do
    edit_tree add "$wan."
    edit_tree delete "$wan.$i."
  done
  edit_tree create Distant 400 OTHER - -
  expect 10 doctor
  has 'connections "Internet" and "Distant" both have the packet mark 31'
  fix_all
}
