# The real one configures, builds and installs with CMake; here that is done.
