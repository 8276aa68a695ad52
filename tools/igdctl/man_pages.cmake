# Writes every manual page: cmake -DIGDCTL=PROGRAM -DFOLDER=FOLDER -P man_pages.cmake
execute_process(COMMAND ${IGDCTL} __man OUTPUT_VARIABLE pages COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" pages "${pages}")
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")
foreach(page IN LISTS pages)
  if(page)
    execute_process(COMMAND ${IGDCTL} __man "${page}" OUTPUT_FILE "${FOLDER}/${page}.1"
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
