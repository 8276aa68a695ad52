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
