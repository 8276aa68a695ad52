# The LAN side.
load helper

@test "address and ports of the LAN" {
  expect 0 lan show
  has 192.168.1.1
  has 255.255.255.0
  has "LAN1 LAN2 LAN3 LAN4 WLAN1 WLAN2 WLAN3 WLAN4"
  expect 0 lan show --json
  has '"kind": "lan.show"'
  has '"address": "192.168.1.1"'
  has '"dhcp_server": false'
}

@test "each setting of the LAN is that of the tree" {
  local lan=InternetGatewayDevice.LANDevice.1.LANHostConfigManagement
  igdctl -q tree set --force "$lan.DHCPServerEnable=true" "$lan.MinAddress=192.0.2.100" \
    "$lan.MaxAddress=192.0.2.199" "$lan.IPInterface.1.IPInterfaceIPAddress=192.0.2.1" \
    "$lan.IPInterface.1.IPInterfaceSubnetMask=255.255.255.128" \
    "$lan.IPInterface.1.IPInterfaceAddressingType=Static" "$lan.IPInterface.1.Enable=false"
  expect 0 lan show
  [ "${lines[0]}" = "address      192.0.2.1" ]
  [ "${lines[1]}" = "mask         255.255.255.128" ]
  [ "${lines[2]}" = "addressing   Static" ]
  [ "${lines[3]}" = "enabled      off" ]
  [ "${lines[4]}" = "DHCP server  on" ]
  [ "${lines[5]}" = "DHCP range   192.0.2.100 - 192.0.2.199" ]
  [ "${lines[6]}" = "bridge       internet" ]
  expect 0 lan show --json
  has '"enabled": false'
  has '"dhcp_server": true'
  has '"dhcp_first": "192.0.2.100"'
  has '"dhcp_last": "192.0.2.199"'
}
