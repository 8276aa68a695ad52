# The suite without an adapter.
set(contract_names
  add_contract_test.cpp
  commit_contract_test.cpp
  contract_test.cpp
  delete_contract_test.cpp
  refusal_contract_test.cpp
  value_contract_test.cpp
  walk_contract_test.cpp)
list(TRANSFORM contract_names PREPEND "${CMAKE_CURRENT_LIST_DIR}/" OUTPUT_VARIABLE contract_sources)
