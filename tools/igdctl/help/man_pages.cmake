# Writes every manual page:
# cmake -DIGDCTL=PROGRAM -DFOLDER=FOLDER [-DCOMPRESS=ON] -P man_pages.cmake
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
if(COMPRESS)  # without a time and a name in them, as builds of one commit are identical
  file(GLOB files "${FOLDER}/*.1")
  execute_process(COMMAND gzip -9nf ${files} COMMAND_ERROR_IS_FATAL ANY)
endif()
