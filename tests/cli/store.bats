# The store: exports, checkpoints, history, confirmation.
load helper
load dump

name=InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName

set_name() { igdctl tree set "$name" "$1"; }
bridge_name() { igdctl tree get "$name"; }

# Overwrites four bytes of the store's file.
patch_store() { printf '%b' "$2" | dd of="$IGD_STORE" bs=1 seek="$1" conv=notrunc status=none; }

@test "path shows where the store is and does not open it" {
  expect 0 store path
  [ "$output" = "$IGD_STORE" ]
  expect 0 --store /nowhere/else.db store path
  [ "$output" = /nowhere/else.db ]
  expect 0 --json store path
  has '"exists": false'
  [ ! -e "$IGD_STORE" ]
}

@test "an export can be imported again, byte for byte" {
  write_dump
  igdctl store import "$BATS_TEST_TMPDIR/dump.csv"
  expect 0 store export "$BATS_TEST_TMPDIR/out.csv"
  has "contains passwords in clear text"
  [ "$(stat -c %a "$BATS_TEST_TMPDIR/out.csv")" = 600 ]
  export IGD_STORE=$BATS_TEST_TMPDIR/other.db
  igdctl --quiet store import "$BATS_TEST_TMPDIR/out.csv"
  expect 0 store export
  [ "$output" = "$(cat "$BATS_TEST_TMPDIR/out.csv")" ]
  has "passwords in clear text" "$stderr"
}

@test "an export for programs is JSON, chosen by option or by file name" {
  expect 0 store export --format json
  has '"parameters"'
  expect 0 store export "$BATS_TEST_TMPDIR/tree.json"
  [[ $(cat "$BATS_TEST_TMPDIR/tree.json") == *'"parameters"'* ]]
  expect 0 --json store export
  has '"kind": "store.export"'
  expect 0 --json store export "$BATS_TEST_TMPDIR/out.csv"
  has '"format": "csv"'
  has "\"objects\": $(grep -c '^[^,]*,true,' "$BATS_TEST_TMPDIR/out.csv")"
  has "\"parameters\": $(grep -c '^[^,]*,false,' "$BATS_TEST_TMPDIR/out.csv")"
  expect 2 --json store export --format csv
  expect 2 store export --format yaml
}

@test "an export over a link or into nowhere is refused" {
  printf 'kept' >"$BATS_TEST_TMPDIR/precious"
  ln -s precious "$BATS_TEST_TMPDIR/link"
  expect 2 store export "$BATS_TEST_TMPDIR/link"
  expect 2 store export "$BATS_TEST_TMPDIR/nowhere/out.csv"
  [ "$(cat "$BATS_TEST_TMPDIR/precious")" = kept ]
}

@test "a checkpoint is saved, listed, restored and deleted" {
  expect 0 store checkpoint list
  has "There are no checkpoints"
  expect 0 store checkpoint before
  set_name lan
  expect 0 store checkpoint list
  [[ ${lines[1]} =~ ^before\ +[0-9]{4}-[0-9]{2}-[0-9]{2}\ [0-9:]{8}\ +1$ ]]
  expect 0 --json store checkpoint list
  has '"name": "before"'
  expect 0 store restore before --dry-run
  has '= "internet", was "lan"'
  [ "$(bridge_name)" = lan ]
  expect 0 store restore before
  [ "$(bridge_name)" = internet ]
  expect 0 store restore before
  has "No change"
  expect 0 store checkpoint delete before
  expect 3 store restore before
}

@test "checkpoint names that are taken, bad, automatic or unknown" {
  expect 2 store checkpoint
  expect 0 store checkpoint before
  expect 2 store checkpoint before
  expect 2 store checkpoint 'no blanks'
  expect 3 store checkpoint delete befor
  has 'did you mean "before"?' "$stderr"
  expect 3 store restore befor
  has 'did you mean "before"?' "$stderr"
  expect 3 store diff before after
  has 'no checkpoint "after"' "$stderr"
  expect 3 store diff after before
  has 'no checkpoint "after"' "$stderr"
  set_name lan
  expect 2 store checkpoint delete @1
  has "deleted after 20 newer changes" "$stderr"
}

@test "history lists the changes; the state before each can be restored" {
  expect 0 store history
  has "There have been no changes yet"
  set_name lan
  set_name wan
  expect 0 store history
  has_not CHECKPOINT
  igdctl store checkpoint named
  expect 0 store history
  has CHECKPOINT
  [[ ${lines[1]} =~ \ tree\ set\ $name\ +@2$ ]]
  [[ ${lines[2]} =~ \ tree\ set\ $name\ +@1$ ]]
  has "named"
  expect 0 store restore @1
  [ "$(bridge_name)" = internet ]
  expect 0 --json store history
  has '"pending": null'
  has '"label": "store restore @1"'
}

@test "history names the command behind each change" {
  igdctl -q wan create --name Voice --vlan 400
  igdctl -q wan set Voice --mtu 1400
  igdctl -q wan ensure --name Other --vlan 500
  igdctl -q wan remove Other
  igdctl -q bridge move LAN4 br_1_1
  igdctl -q route add 198.51.100.0/24 --gateway 192.0.2.1
  igdctl -q route remove 198.51.100.0/24
  igdctl -q route add 203.0.113.0 255.255.255.0 --gateway 192.0.2.1
  igdctl -q route clear --yes
  igdctl -q acs set --username gw
  igdctl -q tree set ManagementServer.Username=one ManagementServer.URL=
  write_dump
  igdctl -q store import "$BATS_TEST_TMPDIR/dump.csv"
  expect 0 --json store history
  diff - <(sed -n 's/.*"label": "\(.*\)".*/\1/p' <<<"$output") <<END
store import $BATS_TEST_TMPDIR/dump.csv
tree set 2 parameters
acs set
route clear
route add 203.0.113.0 255.255.255.0
route remove 198.51.100.0/24
route add 198.51.100.0 255.255.255.0
bridge move LAN4
wan remove Other
wan ensure
wan set Voice
wan create Voice
END
}

@test "diff compares checkpoints with each other and with now" {
  igdctl store checkpoint first
  set_name lan
  igdctl store checkpoint second
  set_name wan
  expect 0 store diff
  has '= "wan", was "lan"'
  expect 0 store diff first
  [ "${lines[0]}" = 'From checkpoint "first" to now' ]
  has '= "wan", was "internet"'
  expect 0 store diff first second
  has '= "lan", was "internet"'
  expect 0 store diff second second
  has "none"
  expect 0 --json store diff first
  has '"from": "first"'
  has '"to": null'
  has '"after": "wan"'
}

@test "secrets stay stars in differences" {
  printf 'open-sesame' | igdctl tree set ManagementServer.Password --value-file -
  expect 0 store diff
  has '"********"'
  has_not open-sesame
  expect 0 store diff --show-secrets
  has open-sesame
}

@test "a pending change is shown, and confirmed or reverted" {
  set_name lan
  igdctl store checkpoint before
  igdctl tree set $name wan --confirm 60
  expect 0 store history
  has "will be reverted in"
  expect 0 --json store history
  has '"milliseconds_left"'
  [ "$(grep -c '"generation": 3' <<<"$output")" -eq 2 ]  # of the change, and of the store
  expect 6 store restore before
  has "igdctl store confirm" "$stderr"
  expect 0 store revert
  has "Reverted the change \"tree set $name\""
  [ "$(bridge_name)" = lan ]
  igdctl tree set $name wan --confirm 60
  expect 0 store confirm
  has "Confirmed the change \"tree set $name\""
  [ "$(bridge_name)" = wan ]
}

@test "without a pending change there is nothing to confirm or revert" {
  expect 6 store confirm
  has "igdctl store history" "$stderr"
  expect 6 store revert
}

@test "a restore can wait for confirmation, too" {
  igdctl store checkpoint before
  set_name lan
  expect 0 store restore before --confirm 60
  [ "$(bridge_name)" = internet ]
  expect 0 store revert
  [ "$(bridge_name)" = lan ]
}

@test "a store of a newer version, and another program's database, are left alone" {
  igdctl store checkpoint first
  cp "$IGD_STORE" "$BATS_TEST_TMPDIR/good.db"
  patch_store 60 '\0\0\0\0143' # SQLite's user version
  expect 5 store history
  has "use the version of igdctl that wrote it" "$stderr"
  cp "$BATS_TEST_TMPDIR/good.db" "$IGD_STORE"
  patch_store 68 '\0\0\0\01' # SQLite's application id
  cp "$IGD_STORE" "$BATS_TEST_TMPDIR/foreign.db"
  expect 5 store history
  has "give another file" "$stderr"
  write_dump
  expect 5 store import "$BATS_TEST_TMPDIR/dump.csv" --keep-corrupt-aside
  cmp "$IGD_STORE" "$BATS_TEST_TMPDIR/foreign.db"
}

@test "a store that others can use is refused with the command that repairs it" {
  set_name lan
  chmod 644 "$IGD_STORE"
  expect 5 tree get "$name"
  [ -z "$output" ]
  has "is accessible to other users" "$stderr"
  repair=$(sed -n "s/.*\(chmod 600 [^ ]*gateway.db\).*/\1/p" <<<"$stderr")
  expect 5 --json tree get "$name"
  has "chmod 600" "$stderr"
  [ "$(stat -c %a "$IGD_STORE")" = 644 ]
  $repair
  [ "$(bridge_name)" = lan ]
}

# Sets $as_owner to what runs a program as the owner of the files in a folder, who is no administrator,
# as that one may write everything.
needs_owner_of() {
  as_owner=()
  [ "$(id -u)" -eq 0 ] || return 0
  as_owner=(setpriv --reuid 65534 --regid 65534 --clear-groups)
  chown -R 65534:65534 "$1"
  "${as_owner[@]}" test -x "$IGDCTL" -a -x "$1" || skip "no other user can run igdctl here"
}

@test "a store that may only be read is read, and takes no change" {
  home=$(mktemp -d)
  export IGD_STORE=$home/gateway.db
  make_three_connections
  chmod 400 "$IGD_STORE"
  needs_owner_of "$home"
  before=$(ls "$home" && kept_in_store)
  run --separate-stderr "${as_owner[@]}" "$IGDCTL" wan list
  [ "$status" -eq 0 ]
  has Television
  run --separate-stderr "${as_owner[@]}" "$IGDCTL" tree get "$name"
  [ "$status" -eq 0 ]
  has internet
  run --separate-stderr "${as_owner[@]}" "$IGDCTL" tree set "$name" lan
  [ "$status" -eq 5 ]
  has "the store can only be read" "$stderr"
  has "check that you can write to the file" "$stderr"
  [ "$(ls "$home" && kept_in_store)" = "$before" ]
  rm -r "$home"
}

@test "--quiet prints data, but no sentences" {
  expect 0 --quiet store checkpoint first
  [ -z "$output" ]
  expect 0 --quiet store export
  [ -z "$stderr" ]
  has BridgeName
}

@test "a gateway has no store" {
  run --separate-stderr igdctl_gateway store path
  [ "$status" -eq 2 ]
  run --separate-stderr igdctl_gateway --help
  has_not "store"
}
