# The management server's settings.
load helper

@test "settings are changed one by one, the others stay" {
  printf 'hush hush\n' >"$BATS_TEST_TMPDIR/password"
  expect 0 acs set --url https://acs.example.net/cpe --username gw \
    --password-file "$BATS_TEST_TMPDIR/password"
  has "Changed the settings"
  expect 0 acs set --request-username server --request-url http://192.0.2.9:7547/
  expect 0 acs show --show-secrets
  has https://acs.example.net/cpe
  has "hush hush"
  has server
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
  expect 2 acs set --password-file "$BATS_TEST_TMPDIR/none"
  expect 2 acs set --password secret
  expect 0 acs show --json
  has '"username": ""'
}

@test "without a terminal a prompt is refused" {
  run --separate-stderr setsid -w "$IGDCTL" acs set --password-prompt
  [ "$status" -eq 2 ]
  has "--password-file" "$stderr"
}

@test "a prompt takes the password without showing it" {
  needs_pseudo_terminal
  # The answer is typed when the question stands there, or should.
  local seen=$BATS_TEST_TMPDIR/seen
  asked() { for _ in {1..400}; do ! grep -q "at the server:" "$seen" || break; sleep 0.05; done; }
  run script -qefc '"$IGDCTL" acs set --password-prompt' "$seen" < <(asked 2>/dev/null; echo hush)
  has "Password of the gateway at the server:"
  has_not hush
  expect 0 acs show --show-secrets
  has hush
}

@test "the gateway build sets and commits" {
  run --separate-stderr igdctl_gateway acs set --username gw
  [ "$status" -eq 0 ]
  expect 0 acs show
  has gw
}
