# The manual pages.
load helper

@test "there is a page for the program and one for each group" {
  expect 0 __man
  [ "${lines[0]}" = igdctl ]
  for group in wan tree store completion; do has "igdctl-$group"; done
  [ "${#lines[@]}" -eq "$(("$(igdctl --help | grep -c '^  [a-z]')" + 1))" ]
  expect 2 __man igdctl-nothing
  [ ! -e "$IGD_STORE" ]
}

@test "the pages are roff without a warning" {
  command -v groff >/dev/null || skip "groff is not installed"
  for program in "$IGDCTL" "$IGDCTL_GATEWAY"; do
    for page in $("$program" __man); do
      "$program" __man "$page" >"$BATS_TEST_TMPDIR/$page.1"
      run groff -man -ww -z -Tutf8 "$BATS_TEST_TMPDIR/$page.1"
      [ "$status" -eq 0 ]
      [ -z "$output" ]
    done
  done
}

@test "a manual page has every section, every command and every exit code" {
  expect 0 __man igdctl-store
  for section in NAME SYNOPSIS DESCRIPTION COMMANDS OPTIONS EXAMPLES "EXIT STATUS" FILES \
    ENVIRONMENT "SEE ALSO"; do
    has ".SH $section"
  done
  for command in path import export checkpoint "checkpoint delete" restore diff history confirm \
    revert; do
    has ".SS \"igdctl store $command\""
  done
  [ "$(grep -cE '^\\fB[0-9]+\\fR$' <<<"$output")" -eq 12 ]
}

@test "the gateway's pages say what it cannot do, and mention no store" {
  run igdctl_gateway __man igdctl-tree
  has 'refused with exit status 7'
  has_not IGD_STORE
  run igdctl_gateway __man
  has_not igdctl-store
}
