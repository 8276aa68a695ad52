# 32-bit words on an amd64 machine, which runs the programs itself.
set(CMAKE_C_COMPILER gcc-12)
set(CMAKE_CXX_COMPILER g++-12)

# The kernel's headers stand where 64-bit programs look. The package that links them for the others
# cannot be installed beside a compiler for MIPS.
set(flags "-m32 -idirafter /usr/include/x86_64-linux-gnu")
set(CMAKE_C_FLAGS_INIT "${flags}")
set(CMAKE_CXX_FLAGS_INIT "${flags}")
