# GoogleTest's headers take longer to parse than the tests that include them: they are parsed once, for
# all programs. The preset `coverage` and clang-tidy do without, so that a missing #include shows.
if(NOT TARGET contract_suite)
  return()
endif()
target_precompile_headers(contract_suite PRIVATE <gtest/gtest.h> <map> <string> <vector>)
foreach(program foreign_platform host_contract_tests host_tests igdctl_tests
    operations_test proof_tests store_tests transcript_test unit_tests)
  if(TARGET ${program})
    target_precompile_headers(${program} REUSE_FROM contract_suite)
  endif()
endforeach()
