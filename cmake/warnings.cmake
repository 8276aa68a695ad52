# The warnings of every target below, in one place. The presets for development and CI make them
# errors (CMAKE_COMPILE_WARNING_AS_ERROR); a plain build does not, so that a newer compiler's new
# warnings stop nobody.

add_library(igd_warnings INTERFACE)
target_compile_options(igd_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)

link_libraries("$<BUILD_INTERFACE:igd_warnings>")
