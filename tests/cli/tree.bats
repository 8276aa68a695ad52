# The tree, parameter by parameter.
load helper

bridge=Layer2Bridging.Bridge.1
root=InternetGatewayDevice

# Everything in the tree.
tree_now() { igdctl --show-secrets tree dump; }

# The command ends with this code and leaves the tree as it was.
expect_no_change() {
  local before
  before=$(tree_now)
  expect "$@"
  [ "$(tree_now)" = "$before" ]
}

@test "get prints just the value of a single parameter, for scripts" {
  expect 0 tree get $root.$bridge.BridgeName
  [ "$output" = internet ]
}

@test "get prints NAME=VALUE of several; the root may be left out" {
  expect 0 tree get $bridge.BridgeName $bridge.VLANID
  [ "${lines[0]}" = "$root.$bridge.BridgeName=internet" ]
  [ "${lines[1]}" = "$root.$bridge.VLANID=0" ]
}

@test "get also gives programs the type and the access" {
  expect 0 --json tree get $bridge.VLANID
  has '"kind": "tree.get"'
  has '"value": "0"'
  has '"type": "unsignedInt"'
  has '"writable": true'
}

@test "all unknown names are listed, with suggestions" {
  expect 3 tree get $bridge.BrigeName $bridge Nothing.At.All
  [ -z "$output" ]
  has "there is no parameter \"$root.$bridge.BrigeName\"" "$stderr"
  has "did you mean \"$root.$bridge.BridgeName\"?" "$stderr"
  has "\"$root.$bridge\" is an object" "$stderr"
  has "$root.Nothing.At.All" "$stderr"
}

@test "set takes NAME VALUE, or NAME=VALUE several times" {
  expect 0 tree set $bridge.BridgeName wan
  has "Set $root.$bridge.BridgeName to \"wan\""
  expect 0 tree set $bridge.BridgeName=lan $bridge.VLANID=7
  expect 0 tree get $bridge.BridgeName $bridge.VLANID
  has "BridgeName=lan"
  has "VLANID=7"
}

@test "set is one change: all of it, or nothing" {
  expect_no_change 2 tree set $bridge.BridgeName=lan $bridge.VLANID=many
  has "VLANID\" cannot be \"many\"" "$stderr"
  has "give a VLAN from 1 to 4094, or 0 for untagged" "$stderr"
}

@test "all problems of a set are listed at once" {
  expect_no_change 2 tree set $bridge.BridgeEnable=yes $bridge.VLANID=-1 $bridge.VLANID=1 \
    Nothing=1 Layer2Bridging.BridgeNumberOfEntries=9 DeviceInfo.Manufacturer=me
  has "give true or false" "$stderr"
  has "has two values" "$stderr"
  has "there is no parameter \"$root.Nothing\"" "$stderr"
  has "is a count of instances" "$stderr"
  has "DeviceInfo.Manufacturer\" is read-only" "$stderr"
}

@test "a single unknown name has its own exit code" {
  expect_no_change 3 tree set $bridge.BridgeNam=x
  has "did you mean" "$stderr"
}

@test "read-only parameters can only be set with --force, which says so" {
  expect_no_change 4 tree set DeviceInfo.Manufacturer Somebody
  has "--force" "$stderr"
  expect 0 tree set DeviceInfo.Manufacturer Somebody --force
  has "overrides this" "$stderr"
  expect 0 tree get DeviceInfo.Manufacturer
  [ "$output" = Somebody ]
}

@test "--force overrides neither wrong values nor counts" {
  expect_no_change 2 tree set $bridge.BridgeEnable yes --force
  expect_no_change 2 tree set Layer2Bridging.BridgeNumberOfEntries 9 --force
}

@test "a dry run shows every write and the difference" {
  expect_no_change 0 tree set $bridge.BridgeName=lan $bridge.VLANID=0 --dry-run
  has "BridgeName = \"lan\", was \"internet\""
  has "nothing was changed"
}

@test "setting the present value is no change, even for read-only parameters" {
  expect 0 tree set Layer2Bridging.BridgeNumberOfEntries=1 $bridge.BridgeName=internet
  has "No change"
  expect 0 store history
  has "no changes"
}

@test "set without anything to set is bad input" {
  expect 2 tree set
  has "nothing to set" "$stderr"
  expect 2 tree set $bridge.VLANID
  has "is not NAME=VALUE" "$stderr"
  expect 2 tree set =1
}

@test "secrets show as stars and are not taken from the command line" {
  expect_no_change 2 tree set ManagementServer.Password open-sesame
  has "--value-file FILE or --prompt" "$stderr"
  has_not open-sesame "$stderr"
  printf 'open-sesame\n' >"$BATS_TEST_TMPDIR/secret"
  expect 0 tree set ManagementServer.Password --value-file "$BATS_TEST_TMPDIR/secret"
  has_not open-sesame
  for command in "get ManagementServer.Password" "dump" "find Password" "list ManagementServer"; do
    # shellcheck disable=SC2086  # a command and its arguments
    expect 0 tree $command
    has '********'
    has_not open-sesame
    # shellcheck disable=SC2086
    expect 0 --json tree $command
    has_not open-sesame
    # shellcheck disable=SC2086
    expect 0 --show-secrets tree $command
    has open-sesame
  done
  expect 3 tree find '*' --value open-sesame
  expect 0 tree find '*' --value open-sesame --show-secrets
  expect 0 tree set ManagementServer.Password=
}

@test "a value can come from standard input, without its last line end" {
  printf 'lan\n' | igdctl tree set $bridge.BridgeName --value-file -
  expect 0 tree get $bridge.BridgeName
  [ "$output" = lan ]
  expect_no_change 2 tree set $bridge.BridgeName --value-file "$BATS_TEST_TMPDIR/none"
  has "cannot read" "$stderr"
  expect_no_change 2 tree set $bridge.BridgeName=x --value-file /dev/null
}

@test "a value of more than 16 MiB is refused, from a file and in a dump" {
  local long=$BATS_TEST_TMPDIR/long dump=$BATS_TEST_TMPDIR/long.csv
  head -c 16777217 /dev/zero | tr '\0' x >"$long"
  expect_no_change 2 tree set $bridge.BridgeName --value-file "$long"
  has "too long" "$stderr"
  {
    printf 'Parameter,Object,Writable,Value,Value type\nInternetGatewayDevice.X,false,false,'
    cat "$long"
    printf ',xsd:string\n'
  } >"$dump"
  expect_no_change 2 store import --yes "$dump"
  has ":2: InternetGatewayDevice.X: Value is longer than 16 MiB" "$stderr"
}

@test "a prompt needs a terminal" {
  run --separate-stderr setsid -w "$IGDCTL" tree set ManagementServer.Password --prompt
  [ "$status" -eq 2 ]
  has "no terminal" "$stderr"
}

@test "set --from accepts what dump prints; stars do no harm" {
  printf 'open-sesame' | igdctl tree set ManagementServer.Password --value-file -
  igdctl tree set "$bridge.BridgeName=a\\b	c"
  igdctl tree dump >"$BATS_TEST_TMPDIR/dump"
  before=$(tree_now)
  expect 0 tree set --from "$BATS_TEST_TMPDIR/dump"
  has "No change"
  igdctl tree set $bridge.BridgeName=lan $bridge.VLANID=7
  expect 0 tree set --from "$BATS_TEST_TMPDIR/dump"
  [ "$(tree_now)" = "$before" ]
}

@test "a bad line of a file is named by its number" {
  printf '# fine\n%s=x\nnonsense\n' $bridge.BridgeName >"$BATS_TEST_TMPDIR/settings"
  expect_no_change 2 tree set --from "$BATS_TEST_TMPDIR/settings"
  has "settings:3: the line is not NAME=VALUE" "$stderr"
}

@test "dump can be limited to names with a given beginning" {
  expect 0 tree dump $bridge.VLAN
  [ "${lines[0]}" = "$root.$bridge.VLANID=0" ]
  [ "${#lines[@]}" -eq 2 ]
  expect 0 --json tree dump $bridge.
  has '"kind": "tree.dump"'
  expect 3 tree dump Nothing
}

@test "list shows what is directly in an object" {
  expect 0 tree list
  has "Layer2Bridging.  "
  has_not "Bridge.1"
  expect 0 tree list $bridge
  [[ ${lines[0]} =~ ^NAME\ +TYPE\ +ACCESS\ +VALUE$ ]]
  has "BridgeName"
  has "Port."
  expect 0 --json tree list $bridge.
  has '"kind": "tree.list"'
  expect 3 tree list Layer2Briding
  has "did you mean \"$root.Layer2Bridging\"?" "$stderr"
  expect 3 tree list $bridge.BridgeName
  has "is a parameter" "$stderr"
}

@test "find searches for part of a name, ignoring case, or for a pattern" {
  expect 0 tree find bridgename
  [ "$output" = "$root.$bridge.BridgeName=internet" ]
  expect 0 tree find '*.Bridge.?.BridgeName'
  [ "$output" = "$root.$bridge.BridgeName=internet" ]
  expect 0 tree find 'Layer2*Name' --value 'INTER'
  [ "$output" = "$root.$bridge.BridgeName=internet" ]
  expect 3 tree find bridgename --value 'inter?'
  expect 0 --json tree find bridgename
  has '"kind": "tree.find"'
}

@test "a value cannot act on the terminal" {
  igdctl tree set "$bridge.BridgeName"=$'\e[31mred'
  for command in "get $bridge.BridgeName" "dump $bridge" "find BridgeName" "list $bridge"; do
    # shellcheck disable=SC2086  # a command and its arguments
    expect 0 tree $command
    has '\x1b[31mred'
    has_not $'\e'
  done
}

@test "the seconds for --confirm are decimal digits, up to a day" {
  local seconds
  for seconds in '' 0 -1 +5 ' 5' '5 ' 0x10 1e2 5s true 86401 4294967297 18446744073709551617; do
    expect_unchanged 2 tree set $bridge.BridgeName lan --confirm="$seconds"
  done
  has "give a whole number of seconds from 1 to 86400" "$stderr"
  expect 0 tree set $bridge.BridgeName lan --confirm 0600  # ten minutes, not octal
  has "reverted in 600"
}

@test "a change waits for confirmation and blocks the next one" {
  expect 0 tree set $bridge.BridgeName lan --confirm 60
  has "igdctl store confirm"
  expect 6 tree set $bridge.BridgeName wan
  expect 0 store confirm
  expect 0 tree get $bridge.BridgeName
  [ "$output" = lan ]
}

@test "a change to the connection that carries management needs consent" {
  wan=$root.WANDevice.1.WANConnectionDevice.1.WANIPConnection.1
  cat >"$BATS_TEST_TMPDIR/managed.csv" <<EOF
Parameter,Object,Writable,Value,Value type
$wan.Name,false,true,Management,xsd:string
$wan.AddressingType,false,true,Static,xsd:string
$wan.Enable,false,true,true,xsd:boolean
$wan.X_CT-COM_ServiceList,false,true,TR069,xsd:string
EOF
  igdctl store checkpoint without
  igdctl --quiet store import "$BATS_TEST_TMPDIR/managed.csv"
  igdctl store checkpoint managed
  expect_no_change 8 store restore without
  expect_no_change 8 tree set $wan.MaxMTUSize 1400
  has 'connection "Management" carries the management service' "$stderr"
  expect 0 tree set $wan.MaxMTUSize 1400 --yes
  expect_no_change 8 store restore managed
  expect_no_change 8 store import "$BATS_TEST_TMPDIR/managed.csv"
  { # what is there, and an object more, with its defaults
    cat "$BATS_TEST_TMPDIR/managed.csv"
    echo "$wan.MaxMTUSize,false,true,1400,xsd:unsignedInt"
    echo "${wan%1}2,true,true,,"
  } >"$BATS_TEST_TMPDIR/added.csv"
  expect_no_change 8 store import "$BATS_TEST_TMPDIR/added.csv"
  expect 0 tree set DeviceInfo.ProvisioningCode free
  expect 0 store restore managed --confirm 60
}

@test "no parameter takes a VLAN beyond 4094, whatever its type" {
  expect 0 tree set $bridge.VLANID=4094
  for vlan in 4095 65535 4294967295; do
    expect_no_change 2 tree set $bridge.VLANID=$vlan
    has "VLANID\" cannot be \"$vlan\"" "$stderr"
    has "give a VLAN from 1 to 4094, or 0 for untagged" "$stderr"
    expect_no_change 2 tree set $bridge.Port.1.PVID=$vlan --force
  done
  run --separate-stderr igdctl_gateway tree set $bridge.VLANID 4095
  [ "$status" -eq 2 ]
  expect 0 tree get $bridge.VLANID
  [ "$output" = 4094 ]
}

@test "a gateway has only get and set; set commits at once" {
  run --separate-stderr igdctl_gateway tree set $bridge.BridgeName lan
  [ "$status" -eq 0 ]
  run --separate-stderr igdctl_gateway tree get $bridge.BridgeName
  [ "$output" = lan ]
  for option in "--dry-run" "--confirm 60"; do
    # shellcheck disable=SC2086  # an option and its argument
    run --separate-stderr igdctl_gateway tree set $bridge.BridgeName wan $option
    [ "$status" -eq 7 ]
    has "needs a store" "$stderr"
  done
  run --separate-stderr igdctl_gateway tree set Nothing.At.All x
  [ "$status" -eq 9 ]
  run --separate-stderr igdctl_gateway tree list
  [ "$status" -eq 2 ]
  run --separate-stderr igdctl_gateway tree --help
  has_not "dump"
  expect 0 tree get $bridge.BridgeName
  [ "$output" = lan ]
}
