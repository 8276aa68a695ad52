# Completion, as a shell asks for it.
load helper

scripts=$BATS_TEST_DIRNAME/../../tools/igdctl/help/completions

# What bash would offer at the end of these words; one a line.
bash_offers() {
  PATH=$(dirname "$IGDCTL"):$PATH bash --norc -c '
    source "$0" && COMP_WORDS=("$@") && COMP_CWORD=$(($# - 1)) && _igdctl igdctl
    [ ${#COMPREPLY[@]} -eq 0 ] || printf "%s\n" "${COMPREPLY[@]}"' \
    "$scripts/igdctl.bash" igdctl "$@"
}

@test "igdctl prints the scripts that are installed" {
  igdctl completion bash | cmp - "$scripts/igdctl.bash"
  igdctl completion zsh | cmp - "$scripts/_igdctl"
  igdctl completion fish | cmp - "$scripts/igdctl.fish"
  expect 2 completion tcsh
}

@test "bash completes groups, commands, options and their values" {
  [ "$(bash_offers sto)" = store ]
  [ "$(bash_offers tree se)" = set ]
  [ "$(bash_offers tree set --dr)" = --dry-run ]
  [ "$(bash_offers store export --format j)" = json ]
  [ "$(bash_offers store export --format = j)" = json ]
  [ "$(bash_offers store export --format =)" = $'csv\njson' ]
  [ -z "$(bash_offers nonsense '')" ]
}

@test "bash completes file names" {
  touch "$BATS_TEST_TMPDIR/dump one.csv"
  [ "$(bash_offers store import "$BATS_TEST_TMPDIR/du")" = "$BATS_TEST_TMPDIR/dump one.csv" ]
}

@test "bash completes what is in the store" {
  igdctl store checkpoint before-vlan
  [ "$(bash_offers store restore be)" = before-vlan ]
  [ "$(bash_offers tree get Layer2)" = Layer2Bridging. ]
  igdctl tree set Layer2Bridging.Bridge.1.BridgeName 'my bridge'
  igdctl __complete bridge | grep -qx 'my bridge'
  igdctl __complete port | grep -qx LAN1
}

@test "bash completes connections, even with blanks in their names" {
  wan=InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANIPConnection.1
  cat >"$BATS_TEST_TMPDIR/dump.csv" <<EOF
Parameter,Object,Writable,Value,Value type
$wan.Name,false,true,My Internet,xsd:string
$wan.AddressingType,false,true,Static,xsd:string
$wan.Enable,false,true,true,xsd:boolean
EOF
  igdctl --quiet store import "$BATS_TEST_TMPDIR/dump.csv"
  [ "$(bash_offers wan show '')" = 'My\ Internet' ]
  [ "$(bash_offers wan show 'My\ In')" = 'My\ Internet' ]
  [ "$(bash_offers wan show '"My In')" = 'My Internet' ]
}

@test "completion is quiet and creates no store" {
  for kind in wan port bridge checkpoint parameter; do
    expect 0 __complete $kind
    [ -z "$output" ]
    [ -z "$stderr" ]
  done
  expect 0 __complete line -- store restore ''
  expect 0 __complete line -- --store "$BATS_TEST_TMPDIR/other.db" wan show ''
  [ ! -e "$IGD_STORE" ]
  [ ! -e "$BATS_TEST_TMPDIR/other.db" ]
  (umask 077 && printf 'no database' >"$IGD_STORE")
  expect 0 __complete wan
  [ -z "$output" ]
  [ -z "$stderr" ]
}

@test "a name that is not plain text is not offered" {
  igdctl tree set Layer2Bridging.Bridge.1.BridgeName $'evil\nname'
  expect 0 __complete bridge
  [ -z "$output" ]
}

@test "zsh accepts the script" {
  command -v zsh >/dev/null || skip "zsh is not installed"
  zsh -n "$scripts/_igdctl"
}

@test "fish completes with the script" {
  command -v fish >/dev/null || skip "fish is not installed"
  export PATH=$BATS_TEST_TMPDIR/bin:$PATH HOME=$BATS_TEST_TMPDIR
  mkdir "$BATS_TEST_TMPDIR/bin" && ln -s "$IGDCTL" "$BATS_TEST_TMPDIR/bin/igdctl"
  fish -n "$scripts/igdctl.fish"
  run fish --no-config -c "source '$scripts/igdctl.fish'; complete -C 'igdctl store exp'"
  [[ $output == export$'\t'* ]]
  run fish --no-config -c "source '$scripts/igdctl.fish'; complete -C 'igdctl store export --format='"
  [ "$output" = $'--format=csv\n--format=json' ]
}
