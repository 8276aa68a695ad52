# The suite without an adapter: objects that every program of it is made of.
set(contract_names
  add_contract_test.cpp
  commit_contract_test.cpp
  contract_test.cpp
  delete_contract_test.cpp
  refusal_contract_test.cpp
  value_contract_test.cpp
  walk_contract_test.cpp)
list(TRANSFORM contract_names PREPEND "${CMAKE_CURRENT_LIST_DIR}/" OUTPUT_VARIABLE contract_sources)
add_library(contract_suite OBJECT ${contract_sources})
target_compile_features(contract_suite PUBLIC cxx_std_17)
target_include_directories(contract_suite PUBLIC
  "${CMAKE_CURRENT_LIST_DIR}" "${CMAKE_CURRENT_LIST_DIR}/../../platform/inc")
target_link_libraries(contract_suite PUBLIC GTest::gtest)
