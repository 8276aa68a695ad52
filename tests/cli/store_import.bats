# Imports into the store.
load helper
load dump

name=InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName

tree_now() { igdctl --show-secrets tree dump; }
bridge_name() { igdctl tree get "$name"; }

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

@test "an import counts what it took, and shows 20 notes unless asked for all" {
  local bridges=InternetGatewayDevice.Layer2Bridging.Bridge dump=$BATS_TEST_TMPDIR/dump.csv
  {
    echo 'Parameter,Object,Writable,Value,Value type'
    echo 'InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries,false,false,9,xsd:unsignedInt'
    printf "$bridges.%d,true,true,,\n" 1 2 3
    printf "$bridges.%d.BridgeName,false,true,x,xsd:string\n" 1 2
    printf "$bridges.%d.BridgeEnable,false,true,TRUE,xsd:boolean\n" 1 2
    printf 'InternetGatewayDevice.X_%d,false,true,x,xsd:string\n' {1..25}
    printf 'Tags.%d,false,true,x,xsd:string\n' {1..6}
  } >"$dump"
  expect 0 store import "$dump" --dry-run
  diff - <(head -n 6 <<<"$output" | tr -s ' ') <<END
objects 3
values 4
values outside the data model 25
booleans rewritten as true or false 2
counts computed 1
rows below other roots, skipped 6
END
  [ "$(grep -c '^extension ' <<<"$output")" -eq 18 ]  # behind those of the two booleans
  has "and 9 more notes; --verbose shows all"
  expect 0 -v store import "$dump" --dry-run
  [ "$(grep -c '^extension ' <<<"$output")" -eq 25 ]
  has_not "more notes"
  expect 0 --json store import "$dump"
  has '"objects": 3'
  has '"parameters": 4'
  has '"extensions": 25'
  has '"foreign": 6'
  has '"booleans": 2'
  has '"counts": 1'
}

@test "an import can be looked at first" {
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

@test "a malformed dump is refused whole, by its line" {
  write_dump
  printf 'InternetGatewayDevice.X,maybe,true,,\n' >>"$BATS_TEST_TMPDIR/dump.csv"
  before=$(tree_now)
  expect 2 store import "$BATS_TEST_TMPDIR/dump.csv"
  has "dump.csv:8: InternetGatewayDevice.X: Object is neither true nor false" "$stderr"
  has "correct the dump" "$stderr"
  expect 2 store import "$BATS_TEST_TMPDIR/none.csv"
  has "cannot read" "$stderr"
  igdctl --quiet store export --format json >"$BATS_TEST_TMPDIR/tree.json"
  expect 2 store import "$BATS_TEST_TMPDIR/tree.json"
  has "import a CSV dump" "$stderr"
  [ "$(tree_now)" = "$before" ]
}

@test "a damaged store is left alone unless an import may move it away" {
  write_dump
  (umask 077 && printf 'no database at all, but long enough' >"$IGD_STORE")
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
  # The next one that is damaged goes past what is there, be it a log alone.
  (umask 077 && printf 'damaged again, and again long enough' >"$IGD_STORE")
  printf 'log' >"$IGD_STORE.corrupt-2-wal"
  expect 0 store import "$BATS_TEST_TMPDIR/dump.csv" --keep-corrupt-aside
  has "gateway.db.corrupt-3" "$stderr"
  [[ $(cat "$IGD_STORE.corrupt-3") == "damaged again"* ]]
}
