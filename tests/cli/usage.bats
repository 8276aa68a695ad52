# The command line itself: help, usage errors, where output goes.
load helper

@test "help fits one screen and names every group" {
  expect 0 --help
  [ "$(igdctl --help | wc -l)" -le 24 ]
  [ "$(igdctl --help | wc -L)" -le 80 ]
  for group in wan tree store completion; do has "  $group "; done
  has_not "__"
}

@test "the version is one line" {
  expect 0 --version
  [[ $output =~ ^igdctl\ [0-9]+\.[0-9]+\.[0-9]+$ ]]
}

@test "every command has help with an example" {
  expect 0 wan list --help
  has "Example:"
  has "igdctl wan list"
}

@test "an unknown command is bad input: what is wrong, and what to do" {
  expect 2 wan lst
  [ -z "$output" ]
  has 'igdctl wan has no command "lst"' "$stderr"
  has "did you mean \"list\"?" "$stderr"
  [ ! -e "$IGD_STORE" ]
}

@test "without a command nothing is done" {
  expect 2
  expect 2 wan
  has "see igdctl wan --help" "$stderr"
  [ ! -e "$IGD_STORE" ]
}

@test "an unknown option is bad input" {
  expect 2 wan list --frobnicate
  has "--frobnicate" "$stderr"
}

@test "global options may come before or after the command" {
  expect 0 --json wan list
  has '"kind": "wan.list"'
  expect 0 wan list --json
  has '"kind": "wan.list"'
}

@test "the trace is discarded unless a file is named, which only its owner can read" {
  expect 0 wan list
  has_not vornik
  expect 0 wan list --trace="$BATS_TEST_TMPDIR/trace"
  has_not vornik
  [ "$(stat -c %a "$BATS_TEST_TMPDIR/trace")" = 600 ]
  [[ $(head -n 1 "$BATS_TEST_TMPDIR/trace") == *passwords* ]]
}

@test "a trace replaces what its file held, which others could read" {
  printf '%5000s' old >"$BATS_TEST_TMPDIR/trace"
  chmod 644 "$BATS_TEST_TMPDIR/trace"
  expect 0 wan list --trace="$BATS_TEST_TMPDIR/trace"
  [ "$(stat -c %a "$BATS_TEST_TMPDIR/trace")" = 600 ]
  has_not old "$(cat "$BATS_TEST_TMPDIR/trace")"
}

@test "a trace file that is a link, or not a file, is refused and left alone" {
  printf 'kept' >"$BATS_TEST_TMPDIR/precious"
  ln -s precious "$BATS_TEST_TMPDIR/link"
  expect 2 wan list --trace="$BATS_TEST_TMPDIR/link"
  expect 2 wan list --trace="$BATS_TEST_TMPDIR"
  expect 2 wan list --trace=/dev/null
  [ "$(cat "$BATS_TEST_TMPDIR/precious")" = kept ]
}

@test "an unusable store has its own exit code" {
  expect 5 --store "$BATS_TEST_TMPDIR/nowhere/gateway.db" wan list
  printf 'no database' >"$BATS_TEST_TMPDIR/text"
  expect 5 --store "$BATS_TEST_TMPDIR/text" wan list
  [ "$(cat "$BATS_TEST_TMPDIR/text")" = "no database" ]
}

@test "results that cannot be written are a failure" {
  run bash -c '"$IGDCTL" wan list --json >/dev/full'
  [ "$status" -eq 1 ]
}

@test "a closed standard output does no harm" {
  igdctl wan list --json >/dev/null
  run bash -c '"$IGDCTL" wan list >&- 2>&-'
  [ "$status" -eq 0 ]
  expect 0 wan list --json
}

@test "the gateway build has no store and says what it cannot do" {
  run --separate-stderr igdctl_gateway --help
  [ "$status" -eq 0 ]
  has_not "--store"
  run --separate-stderr igdctl_gateway --store x wan list
  [ "$status" -eq 2 ]
  run --separate-stderr igdctl_gateway wan list --json
  [ "$status" -eq 0 ]
  has '"kind": "wan.list"'
}
