# Passwords stay stars wherever a change or a value is shown, for people and for programs.
load helper

password_from() { printf '%s' "$1" >"$BATS_TEST_TMPDIR/password"; }

@test "in the plan and the difference of a dry run" {
  make_three_connections
  password_from open-sesame
  local form
  for form in "" --json; do
    # shellcheck disable=SC2086  # no option, or one
    expect 0 $form wan set Internet --password-file "$BATS_TEST_TMPDIR/password" --dry-run
    has Password
    has_not open-sesame
    has_not correct-horse
    # shellcheck disable=SC2086
    expect 0 $form --show-secrets wan set Internet --dry-run \
      --password-file "$BATS_TEST_TMPDIR/password"
    has open-sesame
    has correct-horse
  done
}

@test "in the difference between two states" {
  make_three_connections
  password_from open-sesame
  expect 0 wan set Internet --password-file "$BATS_TEST_TMPDIR/password"
  expect 0 --json store diff
  has '"before": "********"'
  has '"after": "********"'
  has_not open-sesame
  has_not correct-horse
}

@test "where several values are asked for" {
  password_from open-sesame
  expect 0 tree set ManagementServer.Password --value-file "$BATS_TEST_TMPDIR/password"
  local form
  for form in "" --json; do
    # shellcheck disable=SC2086
    expect 0 $form tree get ManagementServer.Username ManagementServer.Password
    has_not open-sesame
    # shellcheck disable=SC2086
    expect 0 $form --show-secrets tree get ManagementServer.Username ManagementServer.Password
    has open-sesame
  done
}
