# Static routes.
load helper
load household

route=InternetGatewayDevice.Layer3Forwarding.Forwarding

@test "a gateway in factory state has no static routes" {
  expect 0 route list
  has "There are no static routes"
  expect 0 route list --json
  has '"data": []'
}

@test "routes by a gateway and by a connection" {
  household
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  has "Set the route to 198.51.100.0 255.255.255.0"
  expect 0 route add 203.0.113.0 255.255.255.0 --connection 1.1 --disabled
  expect 0 route list
  [[ ${lines[1]} =~ ^198.51.100.0/24\ +gateway\ +192.0.2.1\ +on$ ]]
  [[ ${lines[2]} =~ ^203.0.113.0/24\ +connection\ +Internet\ +off$ ]]
  expect 0 route list --json
  has '"prefix": 24'
  has '"connection_path": "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1."'
}

@test "the same route again is no change, a different next hop changes it in place" {
  household
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  has "No change"
  expect 0 route add 198.51.100.0/24 --connection Internet
  expect 0 route list
  [ "${#lines[@]}" -eq 2 ]
  has Internet
}

@test "a route that differs in anything is set anew" {
  household
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.2
  has "Set the route"
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.2 --disabled
  has "Set the route"
  expect 0 route list --json
  has '"destination": "198.51.100.0"'
  has '"mask": "255.255.255.0"'
  has '"via": "gateway"'
  has '"gateway": "192.0.2.2"'
  has '"enabled": false'
  expect 0 route add 198.51.100.0/24 --connection Internet
  expect 0 route add 198.51.100.0/24 --connection Television
  has "Set the route"
  expect 0 route list --json
  has '"via": "connection"'
  has '"connection": "Television"'
}

@test "host bits are refused, and the network is named" {
  expect 2 route add 198.51.100.7/24 --gateway 192.0.2.1
  has "give its network, 198.51.100.0/24" "$stderr"
  expect 0 route list
  has "no static routes"
}

@test "all problems are listed at once" {
  expect 2 route add 198.51.100.300/40 --gateway 224.0.0.1
  has "198.51.100.300" "$stderr"
  has '"40"' "$stderr"
  has "224.0.0.1" "$stderr"
  expect 2 route add 198.51.100.0 255.0.255.0 --gateway 192.0.2.1
  has "gap" "$stderr"
  expect 2 route add 198.51.100.0 --gateway 192.0.2.1
  expect 2 route add 198.51.100.0/24
  has "neither a gateway nor a connection" "$stderr"
  expect 2 route add 198.51.100.0/24 --gateway 192.0.2.1 --connection Internet
  has "both a gateway and a connection" "$stderr"
  expect 2 route add 198.51.100.0/24 --gateway ""
  expect 2 route add
}

@test "a missing connection, or one without a name" {
  expect 3 route add 198.51.100.0/24 --connection Internet
  household
  for name in Internet ''; do
    for object in WANIPConnection.1 WANIPConnection.2 WANPPPConnection.1; do
      edit_tree set "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.$object.Name" "$name"
    done
    expect 4 route add 198.51.100.0/24 --connection 1.2
    has "igdctl wan set 1.2 --name NAME" "$stderr"
  done
  expect 0 route list
  has "no static routes"
}

@test "removing a route by its network, its mask, or its literal texts" {
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  expect 0 route add 198.51.100.0/25 --gateway 192.0.2.1
  expect 0 route remove 198.51.100.0 255.255.255.0
  has "Removed the route to 198.51.100.0 255.255.255.0"
  expect 0 route list
  [ "${#lines[@]}" -eq 2 ]
  has 198.51.100.0/25
  expect 0 route remove 198.51.100.0/25
  edit_tree add "$route."
  number=$(igdctl doctor --json | sed -n 's/.*Forwarding\.\([0-9]*\)\.".*/\1/p' | head -n 1)
  edit_tree set "$route.$number.DestIPAddress" nonsense
  edit_tree set "$route.$number.DestSubnetMask" 255.0.255.0
  expect 0 route remove nonsense 255.0.255.0
  expect 0 route list
  has "no static routes"
}

@test "removing a missing route" {
  expect 3 route remove 198.51.100.0/24
  has "there are no static routes" "$stderr"
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  expect 3 route remove 198.51.100.0/25
  has "198.51.100.0 255.255.255.0" "$stderr"
  expect 2 route remove nonsense
}

@test "clearing needs consent" {
  expect 0 route clear
  has "No change"
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1
  expect 0 route add 203.0.113.0/24 --gateway 192.0.2.1
  expect 8 route clear
  has "all 2 static routes" "$stderr"
  expect 0 route clear --dry-run
  expect 0 route list
  [ "${#lines[@]}" -eq 3 ]
  expect 0 route clear --yes
  has "Removed all static routes: 2"
  expect 0 route list
  has "no static routes"
}

@test "a route can be shown first, or reverted" {
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1 --dry-run
  has "198.51.100.0"
  expect 0 route list
  has "no static routes"
  expect 0 route add 198.51.100.0/24 --gateway 192.0.2.1 --confirm 300
  has "store confirm"
  expect 6 route remove 198.51.100.0/24
}

@test "the gateway build handles routes too" {
  run --separate-stderr igdctl_gateway route add 198.51.100.0/24 --gateway 192.0.2.1
  [ "$status" -eq 0 ]
  run --separate-stderr igdctl_gateway route clear
  [ "$status" -eq 8 ]
  expect 0 route list
  has 198.51.100.0/24
  run --separate-stderr igdctl_gateway route clear --yes
  [ "$status" -eq 0 ]
  run --separate-stderr igdctl_gateway route add 198.51.100.0/24 --gateway 192.0.2.1 --confirm 9
  [ "$status" -eq 7 ]
}
