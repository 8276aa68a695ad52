# Sources compiled together, so that the headers they share are parsed, and their templates made,
# once: a build from nothing takes half as long. A plain build, and with it what is packaged, compiles
# each source by itself.
option(IGD_UNITY "Compile the sources of a room together" OFF)
if(NOT IGD_UNITY)
  return()
endif()

# clang-tidy takes most of its time for headers of others, so it reads several rooms of igdctl at once.
option(IGD_UNITY_WIDE "Compile several rooms together" OFF)
set(igd_wide_groups "acs cli gateway route" "bridge doctor help term" "lan topology tree")

function(igd_unity_group room result)
  if(IGD_UNITY_WIDE)
    foreach(group IN LISTS igd_wide_groups)
      if(" ${group} " MATCHES " ${room} ")
        set(room "${group}")
        string(REPLACE " " "_" room "${room}")
        break()
      endif()
    endforeach()
  endif()
  set(${result} "${room}" PARENT_SCOPE)
endfunction()

# igd_unity(<target> [ALONE <source>...])
# The sources of a folder go together; those of a target without folders by eights. ALONE are those
# that use a name of their own for another thing than their neighbours, or whose definitions a program
# may replace with its own.
function(igd_unity target)
  cmake_parse_arguments(PARSE_ARGV 1 unity "" "" "ALONE")
  if(NOT TARGET ${target})
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  get_target_property(folder ${target} SOURCE_DIR)
  list(TRANSFORM unity_ALONE PREPEND "${folder}/")
  set_source_files_properties(${unity_ALONE} TARGET_DIRECTORY ${target} PROPERTIES
    SKIP_UNITY_BUILD_INCLUSION ON)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "^[a-z]+/")
  foreach(source ${sources})
    get_filename_component(room "${source}" DIRECTORY)
    igd_unity_group("${room}" group)
    set_source_files_properties("${folder}/${source}" TARGET_DIRECTORY ${target} PROPERTIES
      UNITY_GROUP "${group}")
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
  endforeach()
endfunction()

igd_unity(host_objects ALONE
  dump/dump_export.cpp
  process/get_context.cpp
  store/store_file.cpp)
igd_unity(igdctl_objects ALONE
  help/man_page.cpp
  wan/wan_check.cpp
  wan/wan_conflicts.cpp
  wan/wan_ensure.cpp
  wan/wan_status_commands.cpp
  wan/wan_words.cpp)
igd_unity(igdctl_with_store_objects)
igd_unity(contract_suite)
igd_unity(store_tests)
