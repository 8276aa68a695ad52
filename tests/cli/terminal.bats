# What people see: a terminal with colours, its width, and a prompt that does not echo.
load helper

on_terminal() {
  needs_pseudo_terminal
  output=$(shown_on_terminal "$@")
}

@test "a terminal gets colour, a pipe does not" {
  make_three_connections
  TERM=xterm on_terminal 120 wan list
  has $'\e[1mNAME'
  expect 0 wan list
  has_not $'\e['
}

@test "NO_COLOR and a dumb terminal get none" {
  make_three_connections
  TERM=xterm NO_COLOR=1 on_terminal 120 wan list
  has_not $'\e['
  TERM=dumb on_terminal 120 wan list
  has_not $'\e['
}

@test "a table fits the terminal, and a pipe gets all of it" {
  make_three_connections
  export NO_COLOR=1 LC_ALL=C.UTF-8  # to count characters, not bytes
  on_terminal 80 wan list
  while IFS= read -r line; do [ "${#line}" -le 80 ]; done <<<"$output"
  has "…"
  COLUMNS=200 on_terminal 80 wan list
  has_not "…"
  expect 0 wan show Internet
  has "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1."
}

@test "on a narrow terminal each row is a list, without broken words" {
  make_three_connections
  export NO_COLOR=1 LC_ALL=C.UTF-8
  on_terminal 40 wan list
  while IFS= read -r line; do [ "${#line}" -le 40 ]; done <<<"$output"
  has "NAME       Internet"
  has "LAN PORTS  LAN1 LAN2 WLAN1"
  has_not "…"
}

@test "JSON is the same on a terminal" {
  on_terminal 20 wan list --json
  [ "$output" = "$(igdctl wan list --json)" ]
}

@test "a prompt asks for the password and does not show it" {
  needs_pseudo_terminal
  output=$( (sleep 0.5; printf 'hush-hush\n'; sleep 0.5) | script -qec \
    "'$IGDCTL' wan create --name Internet --mode pppoe --user u --password-prompt" /dev/null)
  has "Password: "
  has_not "hush-hush"
  has "Created connection"
  expect 0 wan show Internet --show-secrets
  has "hush-hush"
}

@test "without a terminal a prompt is refused, with the alternative" {
  run --separate-stderr setsid "$IGDCTL" wan create --name Internet --mode pppoe --user u \
    --password-prompt
  [ "$status" -eq 2 ]
  has "--password-file" "$stderr"
}
