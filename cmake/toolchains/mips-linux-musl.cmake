# Big-endian 32-bit MIPS with musl and libc++, by the Clang inside a Zig compiler. It has no shared C
# library, so everything is linked into each program.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR mips)

set(IGD_ZIG zig CACHE FILEPATH "The Zig compiler")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES IGD_ZIG)
set(target -target mips-linux-musleabi)
set(CMAKE_C_COMPILER ${IGD_ZIG} cc ${target})
set(CMAKE_CXX_COMPILER ${IGD_ZIG} c++ ${target})

# The archives' index is the same whichever C library the objects are for.
set(CMAKE_AR mips-linux-gnu-ar CACHE FILEPATH "")
set(CMAKE_RANLIB mips-linux-gnu-ranlib CACHE FILEPATH "")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE NEVER)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mips)
