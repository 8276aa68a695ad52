# GoogleTest: the installed one, or built from source where none is installed for the target.

# In a function, so that its settings reach nothing else.
function(build_googletest source)
  set(BUILD_GMOCK OFF)
  set(BUILD_SHARED_LIBS OFF)
  set(INSTALL_GTEST OFF)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  add_subdirectory("${source}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  foreach(library gtest gtest_main)
    target_compile_options(${library} PRIVATE -w)
  endforeach()
endfunction()

if(IGD_GOOGLETEST_SOURCE)
  build_googletest("${IGD_GOOGLETEST_SOURCE}")
else()
  find_package(GTest REQUIRED)
endif()
include(GoogleTest)

# Registers a program's tests.
#   add_google_tests(<program> [TEST_PREFIX <prefix>])
# Each test is one of CTest's; or, with IGD_TESTS_BY_PROGRAM, the whole program is, where starts take
# long: with an emulator, or the sanitizers.
function(add_google_tests program)
  if(NOT IGD_TESTS_BY_PROGRAM)
    gtest_discover_tests(${program} ${ARGN} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
      PROPERTIES ENVIRONMENT "${test_environment}")
    return()
  endif()
  add_test(NAME ${program} COMMAND ${program} --gtest_brief=1)
  set_tests_properties(${program} PROPERTIES ENVIRONMENT "${test_environment}")
endfunction()
