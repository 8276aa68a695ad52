# The schemas of docs/schemas: what does not pass, what --from takes, and the page beside them.
load helper

check_json=$BATS_TEST_DIRNAME/check_json.py
docs=$BATS_TEST_DIRNAME/../../docs

# igdctl takes it as a new connection, or does not; `schema_agrees` asks the schema for the same.
taken() { describe 0 taken "$1"; }
refused() { describe 2 refused "$1"; }
describe() {
  mkdir -p "$BATS_TEST_TMPDIR/$2"
  local file
  file=$(mktemp "$BATS_TEST_TMPDIR/$2/XXXXXX")
  printf '%s\n' "$3" >"$file"
  expect "$1" wan check --from "$file"
}
schema_agrees() {
  "$check_json" descriptions "$BATS_TEST_TMPDIR"/taken/*
  run "$check_json" descriptions "$BATS_TEST_TMPDIR"/refused/*
  [ "$status" -eq 1 ]
  local file
  for file in "$BATS_TEST_TMPDIR"/refused/*; do
    has "$file: " || { cat "$file" >&2; return 1; }
  done
}

@test "--from accepts what the schema of descriptions allows" {
  taken '{"name": "Voice", "vlan": 400, "class": "routed", "mode": "dhcp", "mtu": 1400}'
  taken '{"name": "Voice", "vlan": null, "nat": null, "service": ["VOIP"], "id": "1.9"}'
  taken '{"name": "Voice", "vlan": 400, "bind_wan": ["LAN4"], "port_option60": {"LAN4": "a"}}'
  taken '{"format": 1, "kind": "wan.show", "data": {"name": "Voice", "stp": true}}'
  refused '{"name": "Voice", "vlam": 400}'
  refused '{"name": "Voice", "vlan": 4095}'
  refused '{"name": "Voice", "vlan": "400"}'
  refused '{"name": "Voice", "vlan": 400, "priority": 8}'
  refused '{"name": "Voice", "mtu": 575}'
  refused '{"name": "Voice", "class": "router"}'
  refused '{"name": "Voice", "mode": "ppp"}'
  refused '{"name": "Voice", "access": "DSL"}'
  refused '{"name": "Voice\n"}'
  refused '{"name": 7}'
  refused '{"name": "Voice", "nat": 1}'
  refused '{"name": "Voice", "service": ["VO IP"]}'
  refused '{"name": "Voice", "bind_lan": "LAN1"}'
  refused '{"name": "Voice", "dns": ["192.0.2.1", "192.0.2.2", "192.0.2.3"]}'
  refused '{"name": "Voice", "port_option60": {"LAN4": 1}}'
  refused '{"format": 2, "kind": "wan.show", "data": {"name": "Voice"}}'
  refused '{"format": 1, "kind": "acs.show", "data": {"name": "Voice"}}'
  schema_agrees
}

@test "what wan show and list print is also a description" {
  make_three_connections
  igdctl --json wan show Television >"$BATS_TEST_TMPDIR/one.json"
  igdctl --json --show-secrets wan list >"$BATS_TEST_TMPDIR/all.json"
  "$check_json" descriptions "$BATS_TEST_TMPDIR"/{one,all}.json
  expect 0 wan ensure --from "$BATS_TEST_TMPDIR/all.json"
  has "No change"
}

# The document after this edit by sed does not pass, for this reason.
refuses() {
  local text=$1 edit=$2 reason=$3
  sed "$edit" <<<"$text" >"$BATS_TEST_TMPDIR/wrong.json"
  [ "$text" != "$(cat "$BATS_TEST_TMPDIR/wrong.json")" ]
  run --separate-stderr "$check_json" documents "$BATS_TEST_TMPDIR/wrong.json"
  [ "$status" -eq 1 ]
  has "$reason" "$stderr"
}

@test "a wrong document fails the check" {
  make_three_connections
  local text
  text=$(igdctl --json wan show Internet)
  refuses "$text" 's/"format": 1/"format": 2/' '$.format'
  refuses "$text" 's/"wan.show"/"wan.shown"/' "no schema for the kind 'wan.shown'"
  refuses "$text" 's/"wan.show"/"wan.list"/' '$.data'
  refuses "$text" 's/"vlan": 100/"vlan": "100"/' '$.data.vlan'
  refuses "$text" '/"mtu"/d' "'mtu' is a required property"
  refuses "$text" 's/"mtu"/"mru"/' "'mru' was unexpected"
  refuses "$text" 's/"dhcp"\|"pppoe"/"ppp"/' '$.data.mode'
  text=$(igdctl --json wan set Internet --mtu 1400 --dry-run)
  refuses "$text" 's/"dry-run"/"done"/' '$.data'
  refuses "$text" 's/"do": "set"/"do": "add"/' '$.data.plan'
  text=$(igdctl --json tree get ManagementServer.Password)
  refuses "$text" '/"set"/d' "'set' is a dependency of 'secret'"
  text=$(igdctl --json tree list Layer2Bridging)
  refuses "$text" 's/"kind": "table"/"kind": "object"/' highest_instance
}

# A copy of the documents and of what checks them, to be changed.
copy_docs() {
  copy=$BATS_TEST_TMPDIR/copy
  mkdir -p "$copy/docs" "$copy/tests/cli"
  cp -r "$docs"/{schemas,igdctl-json.md,host-platform.md} "$copy/docs"
  cp "$check_json" "$copy/tests/cli"
}

# After this edit of the page by sed it and the schemas do not agree, for this reason.
page_fails() {
  copy_docs
  sed -i "$1" "$copy/docs/igdctl-json.md"
  run "$copy/tests/cli/check_json.py" page
  [ "$status" -eq 1 ]
  has "$2"
}

@test "the page and the schemas describe the same kinds and keys" {
  "$check_json" page
  page_fails 's/^## `wan.ports`/## Ports/' "does not tell of the kind wan.ports"
  page_fails 's/^## `wan.ports`/## `wan.ports`, `wan.plugs`/' "the kind wan.plugs has no schema"
  page_fails 's/`mac_address`,//' "does not tell of mac_address"
  page_fails 's/^| `prefix` |/| `prefix`, `metric` |/' "no schema of route.list has metric"
  page_fails 's/^| `mark-twice` |/| `mark-thrice` |/' "no schema of doctor has mark-thrice"
  copy_docs
  rm "$copy/docs/schemas/vlan.free.json"
  run "$copy/tests/cli/check_json.py" page
  [ "$status" -eq 1 ]
  has "the kind vlan.free has no schema"
}
