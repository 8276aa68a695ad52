# That scripts/check-hardening tells when a protection is missing: of a program that has them all, one
# is left out at a time. CC and CHECK_HARDENING name the compiler and the script; ctest sets them.

bats_require_minimum_version 1.5.0

setup() {
  cd "$BATS_TEST_TMPDIR"
  cat >program.c <<'SOURCE'
#include <stdio.h>
void fill(char* text);
void fill(char* text) { fgets(text, 8, stdin); }
int main(void) {
  char text[64];
  fill(text);
  return printf("%s %d\n", text, text[0]);
}
SOURCE
}

# Later flags win over earlier ones.
build() {
  "$CC" -w -O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fPIE -pie \
    -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack "$@" program.c -o program
}

# The program that is built with these flags has this fault, and no other.
has_only_the_fault() {
  build "${@:2}"
  run "$CHECK_HARDENING" program
  printf '%s\n' "$output"
  [ "$status" -eq 1 ]
  [[ ${lines[0]} == "program: "*"$1"* ]]
  [ "${lines[1]}" = "check-hardening: files read: 1, faults: 1" ]
}

@test "a program with all protections passes, and so does a folder that it is in" {
  build
  run -0 "$CHECK_HARDENING" program
  run -0 "$CHECK_HARDENING" .
  [ "$output" = "== files read: 1, no fault" ]
}

@test "a program at a fixed address" { has_only_the_fault "-pie" -fno-PIE -no-pie; }
@test "a stack that no function checks" { has_only_the_fault "-fstack-protector" -fno-stack-protector; }
@test "a call that could be fortified" { has_only_the_fault ": printf:" -U_FORTIFY_SOURCE; }
@test "tables that stay writable" { has_only_the_fault "-z relro" -Wl,-z,norelro; }
@test "functions that are looked up late" { has_only_the_fault "-z now" -Wl,-z,lazy; }
@test "an executable stack" { has_only_the_fault "-z noexecstack" -Wl,-z,execstack; }
@test "a search path" { has_only_the_fault "/opt/lib" -Wl,-rpath,/opt/lib; }

@test "relocations in code" {
  echo '__asm__(".pushsection .text\n.dc.a main\n.popsection");' >>program.c
  has_only_the_fault "relocations in its code" -Wl,-z,notext
}

@test "a search path relative to the program is one of a build folder, another is not" {
  build -Wl,-rpath,'$ORIGIN/../lib'
  run -0 "$CHECK_HARDENING" --build program
  run -1 "$CHECK_HARDENING" program
  build -Wl,-rpath,/opt/lib
  run -1 "$CHECK_HARDENING" --build program
}

@test "a place without a program or a library is no success" {
  run -1 "$CHECK_HARDENING" program.c
  run -1 "$CHECK_HARDENING" missing
  run -1 "$CHECK_HARDENING"
}
