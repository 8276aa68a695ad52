# Showing bridges, and repairing them when they no longer match their connections.
load helper
load household

bridges=InternetGatewayDevice.Layer2Bridging.Bridge
wan=InternetGatewayDevice.WANDevice.1.WANConnectionDevice

@test "a gateway in factory state has only the LAN bridge" {
  expect 0 bridge list
  [ "${#lines[@]}" -eq 2 ]
  [ "${lines[0]}" = "BRIDGE    CONNECTION  STANDARD  VLAN      ENABLED  PORTS" ]
  [ "${lines[1]%% LAN1*}" = "internet  -           802.1D    untagged  on      " ]
  has "LAN1 LAN2 LAN3 LAN4 WLAN1 WLAN2 WLAN3 WLAN4"
}

@test "the list shows which connection each bridge belongs to" {
  household
  expect 0 bridge list
  [[ ${lines[2]} =~ ^br_1_1\ +Internet\ +802.1Q\ +100\ +on\ +LAN0$ ]]
  [[ ${lines[3]} =~ ^br_1_2\ +Television\ +802.1Q\ +200\ +on\ +LAN0\ LAN3$ ]]
  expect 0 bridge list --json
  has '"kind": "bridge.list"'
  has '"connection": "Television"'
}

@test "one bridge with its ports, and what each is bound to" {
  household
  expect 0 bridge show internet
  has "LAN1"
  has "Internet"
  has "4060"
  expect 0 bridge show "$bridges.1"
  has "name        internet"
  expect 0 bridge show br_1_2 --json
  has '"vlan": 200'
  has '"port": "LAN3"'
}

@test "a missing bridge is named, with similar names" {
  expect 3 bridge show intenet
  has 'no bridge "intenet"' "$stderr"
  has 'did you mean "internet"?' "$stderr"
  expect 3 bridge show ""
}

@test "an interface is a port, a device of the system, or a path" {
  household
  expect 0 bridge of LAN3
  [ "${#lines[@]}" -eq 2 ]
  has br_1_2
  expect 0 bridge of eth0.100
  [ "${#lines[@]}" -eq 2 ]
  has br_1_1
  expect 0 bridge of ath0
  has internet
  expect 0 bridge of "$wan.2."
  has br_1_2
  expect 0 bridge of LAN0 --json
  has br_1_1
  has br_1_2
  has br_1_3
}

@test "a port is switched off before it is deleted" {
  household
  expect 0 bridge move LAN4 br_1_2 --dry-run
  [[ ${lines[1]} == *"set     $bridges.1.Port.4.PortEnable = \"false\", was \"true\"" ]]
  [[ ${lines[2]} == *"delete  $bridges.1.Port.4." ]]
}

@test "an interface outside all bridges" {
  expect 3 bridge of LAN9
  has "did you mean \"LAN1" "$stderr"
  expect 3 bridge of eth0.100
  expect 2 bridge of ""
}

@test "a port moves to one bridge and leaves the others" {
  household
  edit_tree add "$bridges.2.Port."
  edit_tree set "$bridges.2.Port.2.PortInterface" LAN4
  expect 0 bridge of LAN4
  [ "${#lines[@]}" -eq 3 ]
  expect 0 bridge move LAN4 internet
  has 'Moved LAN4 to the bridge "internet"'
  expect 0 bridge of LAN4
  [ "${#lines[@]}" -eq 2 ]
  has internet
  expect 0 bridge move LAN4 internet
  has "No change"
}

@test "a moved port takes the VLAN of its bridge, and its connections record it" {
  household
  [ "$(value_of "$wan.1.WANIPConnection.1.X_CT-COM_LanInterface")" = LAN1,LAN2 ]
  expect 0 bridge move LAN2 br_1_2
  expect 0 bridge show br_1_2 --json
  has '"port": "LAN2"'
  has '"pvid": "200"'
  [ "$(value_of "$wan.1.WANIPConnection.1.X_CT-COM_LanInterface")" = LAN1 ]
  [ "$(value_of "$wan.2.WANIPConnection.1.X_CT-COM_LanInterface")" = LAN3,LAN2 ]
  expect 0 wan list --json
  expect 0 doctor
}

@test "uplinks and unknown ports do not move" {
  household
  expect 2 bridge move LAN0 internet
  expect 3 bridge move LAN9 internet
  has "did you mean \"LAN" "$stderr"
  expect 3 bridge move LAN1 br_9_9
}

@test "moving a port of the management connection needs consent" {
  household
  before=$(igdctl bridge list --json)
  expect 8 bridge move LAN4 br_1_3
  [ "$before" = "$(igdctl bridge list --json)" ]
  expect 0 bridge move LAN4 br_1_3 --yes
  expect 0 bridge of LAN4
  has br_1_3
}

@test "a dry run shows the writes and changes nothing" {
  household
  before=$(igdctl bridge list --json)
  expect 0 bridge move LAN4 br_1_1 --dry-run
  has PortInterface
  has "nothing was changed"
  [ "$before" = "$(igdctl bridge list --json)" ]
}

@test "a missing bridge is created as the library would have created it" {
  household
  before=$(igdctl bridge show br_1_1 --json)
  edit_tree delete "$bridges.2."
  expect 10 doctor
  expect 0 bridge create Internet
  has 'Created the bridge "br_1_1"'
  [ "${before//Bridge.2./}" = "$(igdctl bridge show br_1_1 --json | sed 's/Bridge.5.//')" ]
  expect 0 doctor
  expect 0 bridge create Internet
  has "No change"
}

@test "a bridge with a wrong name is renamed, not created again" {
  household
  edit_tree set "$bridges.2.BridgeName" br_9_9
  expect 4 bridge create Internet
  has "igdctl tree set $bridges.2.BridgeName br_1_1" "$stderr"
  expect 4 bridge remove br_9_9
  expect 0 bridge list
  has br_9_9
}

@test "a bridge without a connection is removed, and its ports return to the LAN bridge" {
  household
  edit_tree set "$bridges.3.X_ZYN_WANName" "$wan.9."
  expect 4 bridge remove br_1_1
  has "igdctl wan remove 1.1" "$stderr"
  expect 4 bridge remove internet
  expect 0 bridge remove br_1_2
  expect 0 bridge of LAN3
  [ "${#lines[@]}" -eq 2 ]
  has internet
  expect 3 bridge show br_1_2
}

@test "--force removes even the only bridge that names a connection, and says so" {
  household
  edit_tree set "$bridges.2.BridgeName" br_9_9
  expect 0 bridge remove br_9_9 --force
  has "--force overrides this" "$stderr"
  expect 3 bridge show br_9_9
}

@test "the gateway build repairs bridges too" {
  run --separate-stderr igdctl_gateway bridge list --json
  [ "$status" -eq 0 ]
  household
  run --separate-stderr igdctl_gateway bridge move LAN4 br_1_2
  [ "$status" -eq 0 ]
  expect 0 bridge of LAN4
  has br_1_2
  run --separate-stderr igdctl_gateway bridge move LAN4 internet --dry-run
  [ "$status" -eq 7 ]
}
