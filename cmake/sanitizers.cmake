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
option(IGD_SANITIZE "Build with Clang's sanitizers" OFF)
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
add_compile_options(${sanitizers}
  "-fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizers.ignore"
  -fno-omit-frame-pointer)
# The runtime is in the programs. One in C needs it as for C++, which the libraries are in.
add_link_options(${sanitizers} $<$<LINK_LANGUAGE:C>:-fsanitize-link-c++-runtime>)
link_libraries($<$<LINK_LANGUAGE:C>:stdc++>)
