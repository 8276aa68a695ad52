# Included by the preset `mutation`: most of the time that a source takes goes to the headers of
# others. They are compiled once, and so are the functions in them, into an object beside the
# precompiled header.

function(precompile_for target)
  set(folder "${PROJECT_BINARY_DIR}/quick")
  set(header "${PROJECT_SOURCE_DIR}/tests/mutation/quick_${target}.h")
  set(precompiled "${folder}/${target}.pch")
  set(object "${folder}/${target}.o")
  separate_arguments(flags UNIX_COMMAND "-std=c++17 -fPIC ${CMAKE_CXX_FLAGS_DEBUG}")
  file(MAKE_DIRECTORY "${folder}")
  add_custom_command(OUTPUT "${precompiled}" "${object}"
    COMMAND "${CMAKE_CXX_COMPILER}" ${flags} ${ARGN} -fpch-instantiate-templates -fpch-codegen
      -x c++-header "${header}" -o "${precompiled}"
    COMMAND "${CMAKE_CXX_COMPILER}" -O0 -fPIC -c "${precompiled}" -o "${object}"
    DEPENDS "${header}" VERBATIM)
  add_custom_target(quick_${target} DEPENDS "${precompiled}" "${object}")
  foreach(objects ${target}_objects ${target}_with_store_objects ${target}_on_gateway_objects)
    if(TARGET ${objects})
      add_dependencies(${objects} quick_${target})
      target_compile_options(${objects} PRIVATE
        "SHELL:-Xclang -include-pch -Xclang ${precompiled}")
    endif()
  endforeach()
  target_link_libraries(${target}_objects INTERFACE "${object}")
endfunction()

function(make_quick)
  precompile_for(host -O1 -fvisibility=hidden -fvisibility-inlines-hidden)
  precompile_for(igdctl)
endfunction()

cmake_language(DEFER DIRECTORY "${PROJECT_SOURCE_DIR}" CALL make_quick)
