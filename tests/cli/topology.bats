# How everything is connected, drawn.
load helper
load household

@test "as a tree of box characters" {
  household
  LC_ALL=C.UTF-8 expect 0 topology
  [ "${lines[0]}" = "Ethernet uplink (WAN device 1)" ]
  [ "${lines[1]}" = "├─ Internet  [1.1, routed dhcp, INTERNET, VLAN 100]" ]
  [ "${lines[2]}" = "│  ├─ own bridge br_1_1: LAN0" ]
  [ "${lines[3]}" = "│  └─ LAN bridge: LAN1 (VLAN 4060), LAN2 (VLAN 4060)" ]
  has "├─ LAN1 ── Internet"
  has "└─ LAN4, WLAN1, WLAN2, WLAN3, WLAN4 ── not bound"
}

@test "in ASCII if the locale has no box characters" {
  household
  LC_ALL=C expect 0 topology
  has "|- LAN1 -- Internet"
  LC_ALL=C LANG=C.UTF-8 expect 0 topology --format text
  has "|- LAN1 -- Internet"
  has_not "├"
}

@test "empty bridges" {
  igdctl wan create --name Bare --vlan 5 --service OTHER --enable on
  "$EDIT_TREE" add InternetGatewayDevice.Layer2Bridging.Bridge.
  LC_ALL=C.UTF-8 expect 0 topology
  has ": no ports"
}

@test "the picture in the documents matches the demo" {
  igdctl wan ensure --from "$BATS_TEST_DIRNAME/../../examples/household.json" --yes
  igdctl topology --format svg | cmp - "$BATS_TEST_DIRNAME/../../docs/topology.svg"
}

@test "as DOT and as SVG" {
  household
  expect 0 topology --format dot
  [ "${lines[0]}" = "graph topology {" ]
  [ "${lines[-1]}" = "}" ]
  has 'label="Internet\n1.1  routed dhcp\nINTERNET"'
  expect 0 topology --format svg
  [ "${lines[-1]}" = "</svg>" ]
  has ">Television</text>"
}

@test "for programs" {
  household
  expect 0 topology --json
  has '"kind": "topology"'
  has '"own_ports": ['
  expect 2 topology --json --format svg
  expect 2 topology --format png
}

@test "without connections there is only the LAN bridge" {
  LC_ALL=C expect 0 topology
  [ "${lines[0]}" = 'LAN bridge "internet"' ]
}

@test "a locale missing on this machine is judged by its name" {
  make_three_connections
  unset LC_CTYPE LANG
  LC_ALL=xx_XX.utf8 expect 0 topology
  has "├─"
  LC_ALL=xx_XX.ISO-8859-1 expect 0 topology
  has_not "├─"
  LC_ALL='' LC_CTYPE=xx_XX.UTF-8 expect 0 topology
  has "├─"
}
