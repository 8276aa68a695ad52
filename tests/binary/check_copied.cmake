# Checks that a program holds the library's maps itself: the case that the program's test is about.
#   cmake -DREADELF=<readelf> -DPROGRAM=<file> -P check_copied.cmake
cmake_minimum_required(VERSION 3.25)
set(ENV{LC_ALL} C)

execute_process(COMMAND "${READELF}" -rW "${PROGRAM}"
  OUTPUT_VARIABLE relocations COMMAND_ERROR_IS_FATAL ANY)
foreach(map g_wan_mibinfo_cache_list g_l3_ifname_table)
  if(NOT relocations MATCHES "_COPY[^\n]*${map}")
    message(SEND_ERROR "${PROGRAM}: ${map} is not copied into the program")
  endif()
endforeach()
