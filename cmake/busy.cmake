# What tests spend their time in, compiled with optimisation in a build without: somewhat longer to
# compile, and a ninth of the time to run with the sanitizers.
option(IGD_OPTIMISE_BUSY "Compile what tests spend their time in with -O1" OFF)
if(NOT IGD_OPTIMISE_BUSY)
  return()
endif()
set(busy igd_objects host_objects test_support operations_reference operations_support model_support
  proof_support fuzz_twice)
# Clang takes no header that was precompiled without optimisation.
if(CMAKE_DISABLE_PRECOMPILE_HEADERS)
  list(APPEND busy foreign_platform operations_test transcript_test)
endif()
foreach(target ${busy})
  if(TARGET ${target})
    target_compile_options(${target} PRIVATE -O1)
  endif()
endforeach()
