# Showing connections.
load helper

@test "a gateway in factory state has no connections" {
  expect 0 wan list
  has "There are no connections"
  expect 0 wan list --json
  has '"data": []'
}

@test "a missing connection is named in the message" {
  expect 3 wan show Internet
  has 'no connection "Internet"' "$stderr"
  [ -z "$output" ]
}

@test "a name cannot smuggle control characters into a message" {
  expect 3 wan show $'\e[31mred\nline'
  has '\x1b[31mred\nline' "$stderr"
}

@test "status shows whether each connection is up" {
  make_three_connections
  expect 0 wan status
  has "not connected"
  expect 0 wan status Internet --json
  has '"connected": false'
  has '"mode": "pppoe"'
  expect 3 wan status Radio
}

@test "status distinguishes sent from received" {
  make_three_connections
  local stats=InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANPPPConnection.1.Stats
  "$EDIT_TREE" set $stats.EthernetBytesSent 1111
  "$EDIT_TREE" set $stats.EthernetBytesReceived 2222
  expect 0 wan status Internet --json
  has '"bytes_sent": "1111"'
  has '"bytes_received": "2222"'
}

@test "ports show which connection holds them" {
  make_three_connections
  expect 0 wan ports Television
  [ "${lines[1]}" = "LAN0  uplink    Television  br_1_3  300   on" ]
  [ "${lines[2]}" = "LAN4  bind_wan  Television  br_1_3  300   on" ]
  expect 3 wan ports Radio
}

@test "secrets are stars, and absent from JSON, unless they are asked for" {
  make_three_connections
  expect 0 wan show Internet --json
  has '"password_set": true'
  has_not "correct-horse"
  has_not '"password":'
  expect 0 wan list --json --show-secrets
  has "correct-horse"
}

@test "quiet leaves out sentences, not data" {
  expect 0 --quiet wan list
  [ -z "$output" ]
  make_three_connections
  expect 0 --quiet wan list
  has "Internet"
}
