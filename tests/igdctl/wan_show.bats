# Seeing connections.
load helper

@test "a gateway in factory state has no connections" {
  expect 0 wan list
  has "There are no connections"
  expect 0 wan list --json
  has '"data": []'
}

@test "a connection that is not there is named in the message" {
  expect 3 wan show Internet
  has 'no connection "Internet"' "$stderr"
  [ -z "$output" ]
}

@test "a name cannot smuggle control characters into a message" {
  expect 3 wan show $'\e[31mred\nline'
  has '\x1b[31mred\nline' "$stderr"
}
