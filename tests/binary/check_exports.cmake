# Compares what a library exports with a reviewed list.
#   cmake -DNM=<nm> -DLIBRARY=<file> -DEXPECTED=<list> -P check_exports.cmake
cmake_minimum_required(VERSION 3.25)
set(ENV{LC_ALL} C)

# Local names, which a MIPS library has among its dynamic symbols, are bound by nobody.
#
# Lines "<demangled>|<kind>|<mangled>", standard types by their short names.
function(exports_of library result)
  execute_process(COMMAND "${NM}" -D --extern-only --defined-only --no-sort "${library}"
    OUTPUT_VARIABLE mangled COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND "${NM}" -D --extern-only --defined-only --no-sort -C "${library}"
    OUTPUT_VARIABLE demangled COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >"
    "std::string" demangled "${demangled}")
  string(REGEX REPLACE "std::vector<([a-z_:]+), std::allocator<[a-z_:]+ ?> >" "std::vector<\\1>"
    demangled "${demangled}")
  string(REGEX MATCHALL "[^\n]+" mangled "${mangled}")
  string(REGEX MATCHALL "[^\n]+" demangled "${demangled}")
  set(lines)
  foreach(raw name IN ZIP_LISTS mangled demangled)
    string(REGEX MATCH "^[0-9a-f]+ ([A-Za-z]) (.+)$" _ "${raw}")
    kind_of("${CMAKE_MATCH_1}" kind)
    set(symbol "${CMAKE_MATCH_2}")
    string(REGEX REPLACE "^[0-9a-f]+ [A-Za-z] " "" name "${name}")
    list(APPEND lines "${name}|${kind}|${symbol}")
  endforeach()
  set(${result} "${lines}" PARENT_SCOPE)
endfunction()

# Strong definitions only; what else nm shows (weak, unique) stays as its letter and is unexpected.
function(kind_of letter result)
  if(letter STREQUAL "T")
    set(${result} code PARENT_SCOPE)
  elseif(letter MATCHES "^[BDGS]$")
    set(${result} data PARENT_SCOPE)
  else()
    set(${result} "${letter}" PARENT_SCOPE)
  endif()
endfunction()

function(expected_exports file result)
  file(STRINGS "${file}" rows REGEX "^[^#]")
  set(lines)
  foreach(row IN LISTS rows)
    if(row MATCHES "^  (code|data) (.+)$")
      list(APPEND lines "${name}|${CMAKE_MATCH_1}|${CMAKE_MATCH_2}")
    else()
      set(name "${row}")
    endif()
  endforeach()
  set(${result} "${lines}" PARENT_SCOPE)
endfunction()

expected_exports("${EXPECTED}" expected)
exports_of("${LIBRARY}" actual)
if(NOT expected OR NOT actual)
  message(FATAL_ERROR "nothing to compare: ${EXPECTED}, ${LIBRARY}")
endif()
foreach(line IN LISTS expected)
  if(NOT line IN_LIST actual)
    message(SEND_ERROR "not exported: ${line}")
  endif()
endforeach()
foreach(line IN LISTS actual)
  if(NOT line IN_LIST expected)
    message(SEND_ERROR "exported, but not in ${EXPECTED}: ${line}")
  endif()
endforeach()
