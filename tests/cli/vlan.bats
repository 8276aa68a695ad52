# Finding a VLAN that no bridge has.
load helper
load household

@test "the lowest free VLAN from 1000" {
  expect 0 vlan free
  [ "$output" = 1000 ]
  edit_tree create Internet 1000 INTERNET - -
  edit_tree create Voice 1001 VOIP - -
  expect 0 vlan free --json
  has '"kind": "vlan.free"'
  has '"vlan": 1002'
}

@test "VLANs below 1000 do not count" {
  edit_tree create Internet 100 INTERNET - -
  expect 0 vlan free
  [ "$output" = 1000 ]
}
