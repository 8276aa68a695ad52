# The store: dumps, checkpoints, history, confirmation.
load helper

name=InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName

tree_now() { igdctl --show-secrets tree dump; }
set_name() { igdctl tree set "$name" "$1"; }
bridge_name() { igdctl tree get "$name"; }

# A dump with a boolean and a count as gateways write them, what the data model lacks, and what is
# not the gateway's.
write_dump() {
  cat >"$BATS_TEST_TMPDIR/dump.csv" <<'EOF'
Parameter,Object,Writable,Value,Value type
InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries,false,false,5,xsd:unsignedInt
InternetGatewayDevice.Layer2Bridging.Bridge.1,true,true,,
InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName,false,true,imported,xsd:string
InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeEnable,false,true,TRUE,xsd:boolean
InternetGatewayDevice.X_Own.Colour,false,true,red,xsd:string
DeviceID.ID,false,false,1,xsd:string
EOF
}

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

@test "an import replaces the tree and reports what it changed" {
  write_dump
  expect 0 store import "$BATS_TEST_TMPDIR/dump.csv"
  has "Imported"
  has "TRUE became true"
  has 'is 1, not "5"'
  has "not in the data model"
  has "1 row skipped"
  [ "$(bridge_name)" = imported ]
  expect 0 store import "$BATS_TEST_TMPDIR/dump.csv"
  has "No change"
}

@test "an import can be inspected first" {
  write_dump
  before=$(tree_now)
  expect 0 store import - --dry-run <"$BATS_TEST_TMPDIR/dump.csv"
  has "BridgeName = \"imported\", was \"internet\""
  [ "$(tree_now)" = "$before" ]
  expect 0 --json store import "$BATS_TEST_TMPDIR/dump.csv" --dry-run
  has '"result": "dry-run"'
  has '"booleans": 1'
  has '"kind": "foreign"'
  [ "$(tree_now)" = "$before" ]
}

@test "a malformed dump is refused as a whole, naming the line" {
  write_dump
  printf 'InternetGatewayDevice.X,maybe,true,,\n' >>"$BATS_TEST_TMPDIR/dump.csv"
  before=$(tree_now)
  expect 2 store import "$BATS_TEST_TMPDIR/dump.csv"
  has "dump.csv:8: InternetGatewayDevice.X: Object is neither true nor false" "$stderr"
  expect 2 store import "$BATS_TEST_TMPDIR/none.csv"
  has "cannot read" "$stderr"
  igdctl --quiet store export --format json >"$BATS_TEST_TMPDIR/tree.json"
  expect 2 store import "$BATS_TEST_TMPDIR/tree.json"
  has "import a CSV dump" "$stderr"
  [ "$(tree_now)" = "$before" ]
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
  set_name lan
  expect 2 store checkpoint delete @1
  has "deleted after 20 newer changes" "$stderr"
}

@test "history lists the changes; the state before each can be restored" {
  expect 0 store history
  has "There have been no changes yet"
  set_name lan
  set_name wan
  igdctl store checkpoint named
  expect 0 store history
  [[ ${lines[1]} =~ \ tree\ set\ $name\ +@2$ ]]
  [[ ${lines[2]} =~ \ tree\ set\ $name\ +@1$ ]]
  has "named"
  expect 0 store restore @1
  [ "$(bridge_name)" = internet ]
  expect 0 --json store history
  has '"pending": null'
  has '"label": "store restore @1"'
}

@test "diff compares checkpoints with each other and with now" {
  igdctl store checkpoint first
  set_name lan
  igdctl store checkpoint second
  set_name wan
  expect 0 store diff
  has '= "wan", was "lan"'
  expect 0 store diff first
  has '= "wan", was "internet"'
  expect 0 store diff first second
  has '= "lan", was "internet"'
  expect 0 store diff second second
  has "none"
  expect 0 --json store diff first
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
  expect 6 store restore before
  has "igdctl store confirm" "$stderr"
  expect 0 store revert
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

@test "a damaged store is left alone unless an import is allowed to move it away" {
  write_dump
  printf 'no database at all, but long enough' >"$IGD_STORE"
  expect 5 store history
  has "--keep-corrupt-aside" "$stderr"
  expect 5 store import "$BATS_TEST_TMPDIR/dump.csv"
  expect 2 store import "$BATS_TEST_TMPDIR/none.csv" --keep-corrupt-aside
  expect 2 store import "$BATS_TEST_TMPDIR/dump.csv" --keep-corrupt-aside --dry-run
  [[ $(cat "$IGD_STORE") == "no database"* ]]
  expect 0 store import "$BATS_TEST_TMPDIR/dump.csv" --keep-corrupt-aside
  has "gateway.db.corrupt-1" "$stderr"
  [[ $(cat "$IGD_STORE.corrupt-1") == "no database"* ]]
  [ "$(bridge_name)" = imported ]
  expect 0 store import "$BATS_TEST_TMPDIR/dump.csv" --keep-corrupt-aside
  [ ! -e "$IGD_STORE.corrupt-2" ]
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
