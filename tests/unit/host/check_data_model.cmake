# Checks that a document is what a program prints.
#   cmake -DPROGRAM=<file> -DDOCUMENT=<file> -P check_data_model.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ "${DOCUMENT}" kept)
if(NOT printed STREQUAL kept)
  message(FATAL_ERROR "${DOCUMENT} is not that of the schema: scripts/check-docs --update")
endif()
