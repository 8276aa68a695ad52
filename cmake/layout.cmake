# Where built files land, and how programs find the libraries there: by a path relative to
# themselves, so that a build folder can be moved.

set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# RUNPATH, not RPATH: LD_LIBRARY_PATH can then put another platform library in front.
add_link_options(LINKER:--enable-new-dtags)
