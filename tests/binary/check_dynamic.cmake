# Checks what the dynamic linker reads of a library.
#   cmake -DREADELF=<readelf> -DLIBRARY=<file> -DSONAME=<name> "-DNEEDED=<name>;..."
#         "-DALLOWED=<pattern>" -P check_dynamic.cmake
# NEEDED are the libraries it must name; ALLOWED matches the others that it may.
cmake_minimum_required(VERSION 3.25)
set(ENV{LC_ALL} C)

execute_process(COMMAND "${READELF}" -dW "${LIBRARY}"
  OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${READELF}" --dyn-syms -W "${LIBRARY}"
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)

# Values of all entries with a tag, brackets removed.
function(entries tag result)
  string(REGEX MATCHALL "\\(${tag}\\)[^\n]*\\[[^\n]*\\]" lines "${dynamic}")
  set(values)
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[^[]*\\[(.*)\\]$" "\\1" value "${line}")
    list(APPEND values "${value}")
  endforeach()
  set(${result} "${values}" PARENT_SCOPE)
endfunction()

function(expect_equal what actual expected)
  if(NOT actual STREQUAL expected)
    message(SEND_ERROR "${LIBRARY}: ${what} is \"${actual}\", not \"${expected}\"")
  endif()
endfunction()

entries(SONAME soname)
expect_equal(SONAME "${soname}" "${SONAME}")
entries(RUNPATH runpath)
expect_equal(RUNPATH "${runpath}" "$ORIGIN")
entries(RPATH rpath)
expect_equal(RPATH "${rpath}" "")

entries(NEEDED needed)
foreach(library IN LISTS NEEDED)
  if(NOT library IN_LIST needed)
    message(SEND_ERROR "${LIBRARY}: does not name ${library} as needed: ${needed}")
  endif()
endforeach()
foreach(library IN LISTS needed)
  if(NOT library IN_LIST NEEDED AND NOT library MATCHES "^(${ALLOWED})$")
    message(SEND_ERROR "${LIBRARY}: needs ${library}")
  endif()
endforeach()

# Programs may put their own definitions in front. That names are resolved when the library is loaded
# does not keep them from it; that the library prefers its own would.
if(dynamic MATCHES "\\((SYMBOLIC|TEXTREL)\\)|\\(FLAGS(_1)?\\)[^\n]*(SYMBOLIC|TEXTREL)")
  message(SEND_ERROR "${LIBRARY}: prefers its own names, or writes into its code: ${CMAKE_MATCH_0}")
endif()
if(symbols MATCHES "[^\n]*PROTECTED[^\n]*")
  message(SEND_ERROR "${LIBRARY}: a protected name: ${CMAKE_MATCH_0}")
endif()
