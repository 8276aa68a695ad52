# Tables and drawings as people see them, byte for byte, at two widths of the terminal.
#
# golden/ has the expected output. IGDCTL_UPDATE_GOLDEN=1 rewrites it; review the difference before you
# is kept.
load helper
load household

widths=(80 120)

# The household with a connection whose words are long, routes, and what the doctor has to say of.
prepare() {
  household
  printf 'correct-horse\n' >"$BATS_TEST_TMPDIR/password"
  igdctl --quiet wan create --name "Gäste und Telefone im Dachgeschoss" --mode pppoe \
    --user guest@example.net --password-file "$BATS_TEST_TMPDIR/password" --service INTERNET,VOIP \
    --vlan 3001 --priority 5 --bind-lan WLAN1,WLAN2 --enable off
  igdctl --quiet route add 198.51.100.0/24 --gateway 192.0.2.1
  igdctl --quiet route add 203.0.113.128/25 --connection Television --disabled
  local bridges=InternetGatewayDevice.Layer2Bridging.Bridge
  edit_tree add "$bridges."
  edit_tree set "$bridges.6.BridgeName" br_9_9
  edit_tree set "$bridges.6.BridgeStandard" 802.1Q
  edit_tree set "$bridges.6.VLANID" 55
  igdctl --quiet bridge move LAN4 br_9_9
  edit_tree set "$bridges.4.VLANID" 200
}

# Compares what the words of a command show with golden/<words>-<columns>.txt.
is_golden() {
  local words=$1 columns golden shown=$BATS_TEST_TMPDIR/shown
  needs_pseudo_terminal
  export NO_COLOR=1 LC_ALL=C.UTF-8
  prepare
  for columns in "${widths[@]}"; do
    golden=$BATS_TEST_DIRNAME/golden/${words// /-}-$columns.txt
    shown_on_terminal "$columns" "$words" >"$shown"
    [ -z "${IGDCTL_UPDATE_GOLDEN:-}" ] || cp "$shown" "$golden"
    diff -u "$golden" "$shown"
  done
}

@test "wan list" { is_golden "wan list"; }
@test "bridge list" { is_golden "bridge list"; }
@test "route list" { is_golden "route list"; }
@test "topology" { is_golden topology; }
@test "doctor" { is_golden doctor; }
