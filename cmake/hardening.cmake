# What keeps an error in memory from becoming a way in, in all that is built and so in what is
# packaged. Each is used where the target's compiler and linker have it without a warning, or as the
# variable of its name says; scripts/check-hardening reads from the binaries what came of it.
#
#   IGD_RELRO, IGD_NOW  the addresses of functions and tables are resolved when a program starts, and
#                       cannot be written from then on; on MIPS the linker leaves out those of functions
#   IGD_STACK_PROTECTOR a function that wrote past an array of its own ends the program
#   IGD_STACK_CLASH_PROTECTION
#                       a large frame is touched page by page, so that it cannot step over the page
#                       that guards the stack's end
#   IGD_FORTIFY         the C library holds its writes within what they go to; with optimisation only,
#                       and at the packager's level where the flags give one
#
# Installed programs are loaded at another address each time. A library that asks for an executable
# stack gets one for the whole program, so these do not, whatever the C library's start files say.
# Those of a program are heeded: old kernels that emulate the floating-point unit of a MIPS put code on
# the stack.
option(IGD_HARDENING "Build with protections against errors in memory; OFF: with the toolchain's own" ON)
add_library(igd_hardening INTERFACE)
link_libraries("$<BUILD_INTERFACE:igd_hardening>")
# The sanitizers find more by themselves.
if(NOT IGD_HARDENING OR IGD_SANITIZE)
  function(igd_harden_program)
  endfunction()
  return()
endif()

include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)
include(CheckPIESupported)

# Whether a function that writes into an array of its own can be compiled and linked with a flag.
function(igd_check_flag flag result)
  set(CMAKE_REQUIRED_FLAGS "-Werror ${flag}")
  check_cxx_source_compiles("
    #include <cstdio>
    int main(int, char** arguments) {
      char copy[64];
      return std::snprintf(copy, sizeof copy, \"%s\", arguments[0]) == copy[0];
    }" ${result})
endfunction()

# Asked anew at each configuration, as it follows from all flags of the build.
function(igd_check_fortify result)
  set(CMAKE_TRY_COMPILE_CONFIGURATION "${CMAKE_BUILD_TYPE}")
  unset(${result} CACHE)
  check_cxx_source_compiles("
    #if !defined __OPTIMIZE__ || defined _FORTIFY_SOURCE
    #error not to be given here
    #endif
    int main() {}" ${result})
endfunction()

igd_check_flag(-fstack-protector-strong IGD_STACK_PROTECTOR)
igd_check_flag(-fstack-clash-protection IGD_STACK_CLASH_PROTECTION)
igd_check_fortify(IGD_FORTIFY)
check_linker_flag(CXX LINKER:-z,relro IGD_RELRO)
check_linker_flag(CXX LINKER:-z,now IGD_NOW)
check_pie_supported(LANGUAGES CXX)

target_compile_options(igd_hardening INTERFACE
  $<$<BOOL:${IGD_STACK_PROTECTOR}>:-fstack-protector-strong>
  $<$<BOOL:${IGD_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>)
target_compile_definitions(igd_hardening INTERFACE
  $<$<AND:$<BOOL:${IGD_FORTIFY}>,$<COMPILE_LANGUAGE:CXX>>:_FORTIFY_SOURCE=2>)
target_link_options(igd_hardening INTERFACE
  $<$<BOOL:${IGD_RELRO}>:LINKER:-z,relro>
  $<$<BOOL:${IGD_NOW}>:LINKER:-z,now>
  $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:LINKER:-z,noexecstack>)

# igd_harden_program(<program> [<library>...]): for what is installed, with the libraries of objects
# that it is made of.
function(igd_harden_program program)
  if(NOT CMAKE_CXX_LINK_PIE_SUPPORTED)
    return()
  endif()
  set_target_properties(${program} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  foreach(objects ${ARGN})
    target_compile_options(${objects} PRIVATE -fPIE)
  endforeach()
endfunction()
