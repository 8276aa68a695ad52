# The management server's settings.
load helper

@test "settings are changed one by one, the others stay" {
  printf 'hush hush\n' >"$BATS_TEST_TMPDIR/password"
  expect 0 acs set --url https://acs.example.net/cpe --username gw \
    --password-file "$BATS_TEST_TMPDIR/password"
  has "Changed the settings"
  expect 0 acs set --request-username server --request-url http://192.0.2.9:7547/
  expect 0 acs show --show-secrets
  diff - <(tr -s ' ' <<<"$output") <<END
URL https://acs.example.net/cpe
username gw
password hush hush
request URL http://192.0.2.9:7547/
request username server
request password -
END
  expect 0 acs show --json
  has '"url": "https://acs.example.net/cpe"'
  has '"request_url": "http://192.0.2.9:7547/"'
  expect 0 acs set --username gw
  has "No change"
}

@test "passwords are stars unless asked for" {
  run bash -c 'printf "hush" | "$IGDCTL" acs set --request-password-file -'
  [ "$status" -eq 0 ]
  expect 0 acs show
  has "********"
  has_not hush
  expect 0 acs show --json
  has '"request_password_set": true'
  has '"password_set": false'
  has_not hush
  expect 0 acs show --json --show-secrets
  has '"request_password": "hush"'
}

@test "a password has at most 255 bytes, none of them zero" {
  head -c 256 /dev/zero | tr '\0' x >"$BATS_TEST_TMPDIR/long"
  printf 'a\0b' >"$BATS_TEST_TMPDIR/zero"
  local file
  for file in long zero; do
    expect_unchanged 2 acs set --password-file "$BATS_TEST_TMPDIR/$file"
    has "longer than 255 bytes or contains a zero byte" "$stderr"
  done
  head -c 255 "$BATS_TEST_TMPDIR/long" >"$BATS_TEST_TMPDIR/longest"
  expect 0 acs set --password-file "$BATS_TEST_TMPDIR/longest"
}

@test "a dry run shows no password" {
  printf 'hush' >"$BATS_TEST_TMPDIR/password"
  expect 0 acs set --password-file "$BATS_TEST_TMPDIR/password" --dry-run
  has Password
  has_not hush
  expect 0 acs show --json
  has '"password_set": false'
}

@test "an empty text clears a setting" {
  expect 0 acs set --url https://acs.example.net
  expect 0 acs set --url ''
  expect 0 acs show --json
  has '"url": ""'
}

@test "all problems are listed at once, and nothing changes" {
  expect 2 acs set --url ftp://acs --request-url https:// --username $'a\nb'
  has "ftp://acs" "$stderr"
  has '"https://"' "$stderr"
  has 'a\nb' "$stderr"
  expect 2 acs set
  has "no setting is given" "$stderr"
  expect 2 acs set --password-file - --request-password-file -
  expect 2 acs set --password-file x --password-prompt
  has "both a file and a prompt" "$stderr"
  expect 2 acs set --password-file "$BATS_TEST_TMPDIR/none"
  expect 2 acs set --password secret
  expect 0 acs show --json
  has '"username": ""'
}

@test "a URL has a scheme in any case, a host, and nothing that ends it" {
  expect 0 acs set --url HTTPS://acs.example.net
  local url
  for url in https:///cpe 'https://acs.example.net/a b' 'https://<acs>' '"https://acs"'; do
    expect 2 acs set --url "$url"
    has "give a URL such as" "$stderr"
  done
}

@test "a text is at most 255 bytes long" {
  expect 0 acs set --username "$(printf 'x%.0s' {1..255})"
  expect 2 acs set --username "$(printf 'x%.0s' {1..256})"
  has "give at most 255 bytes" "$stderr"
}

@test "without a terminal a prompt is refused" {
  run --separate-stderr setsid -w "$IGDCTL" acs set --password-prompt
  [ "$status" -eq 2 ]
  has "--password-file" "$stderr"
}

@test "a prompt takes each password without showing it" {
  needs_pseudo_terminal
  # The answer is typed when the question stands there, or should.
  local seen=$BATS_TEST_TMPDIR/seen
  asked() { for _ in {1..400}; do ! grep -q "$1" "$seen" || break; sleep 0.05; done; }
  answers() {
    asked "Password of the gateway at the server:"
    echo hush
    asked "Password of the server at the gateway:"
    echo quiet
  }
  run script -qefc '"$IGDCTL" acs set --password-prompt --request-password-prompt' "$seen" \
    < <(answers 2>/dev/null)
  has "Password of the gateway at the server:"
  has "Password of the server at the gateway:"
  has_not hush
  has_not quiet
  expect 0 acs show --show-secrets --json
  has '"password": "hush"'
  has '"request_password": "quiet"'
}

@test "the gateway build sets and commits" {
  run --separate-stderr igdctl_gateway acs set --username gw
  [ "$status" -eq 0 ]
  expect 0 acs show
  has gw
  run --separate-stderr igdctl_gateway acs set --username gw
  [ "$output" = "No change: everything is already as requested" ]
}
