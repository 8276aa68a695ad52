# The preset `sanitizers`: what Clang can check while the tests run. The first finding ends a test.
#
#   address        memory out of bounds, used after it is freed, leaked
#   undefined      undefined behaviour; without vptr: a foreign platform has no type information to
#                  check against
#   integer, implicit-conversion
#                  defined, but rarely meant: unsigned numbers that wrap, numbers that another type
#                  does not hold. Where it is meant, the source says so: by a static_cast, or
#                  by a helper that names it
#   local-bounds   objects whose size only the optimiser knows
#
# The harnesses of tests/fuzz are programs of libFuzzer in the same build.
option(IGD_SANITIZE "Build with Clang's sanitizers, and the harnesses with libFuzzer" OFF)
add_library(igd_sanitizers INTERFACE)
link_libraries("$<BUILD_INTERFACE:igd_sanitizers>")
if(NOT IGD_SANITIZE)
  return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "IGD_SANITIZE needs Clang")
endif()

set(sanitizers
  -fsanitize=address,undefined,integer,implicit-conversion,local-bounds
  -fno-sanitize=vptr
  -fno-sanitize-recover=all)
target_compile_options(igd_sanitizers INTERFACE ${sanitizers}
  "-fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizers.ignore"
  -fno-omit-frame-pointer)
# The runtime is in the programs. One in C needs it as for C++, which the libraries are in.
target_link_options(igd_sanitizers INTERFACE
  ${sanitizers} $<$<LINK_LANGUAGE:C>:-fsanitize-link-c++-runtime>)
target_link_libraries(igd_sanitizers INTERFACE $<$<LINK_LANGUAGE:C>:stdc++>)
