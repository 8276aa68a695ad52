# What cannot be done has an exit code of its own, and leaves nothing half done.
load helper

@test "a disk that takes no more: exit code 5, and nothing changed" {
  make_three_connections
  local before
  before=$(igdctl --json wan list)
  run --separate-stderr bash -c 'trap "" XFSZ; ulimit -f 0; "$IGDCTL" wan set Internet --vlan 110'
  [ "$status" -eq 5 ]
  [ "$before" = "$(igdctl --json wan list)" ]
}

@test "a gateway whose platform refuses the commit: exit code 9, which says what may stand" {
  make_three_connections
  igdctl -q wan set Television --mtu 1400 --confirm 600  # until then nothing else is committed
  run --separate-stderr igdctl_gateway wan set Internet --vlan 110
  [ "$status" -eq 9 ]
  has "may stand" "$stderr"
  run --separate-stderr igdctl_gateway wan remove Television
  [ "$status" -eq 9 ]
  has "did not remove" "$stderr"
}
