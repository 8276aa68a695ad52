# What other projects find an installed libigd by: find_package(igd) and pkg-config. Each part of an
# installation is a component with the name of its Debian package; a tool's folder installs its
# program, manual pages and completions as a component with the tool's name.
include(CMakePackageConfigHelpers)

set(igd_cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/igd")
set(igd_pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(EXPORT igdTargets NAMESPACE igd:: DESTINATION "${igd_cmake_dir}" COMPONENT libigd-dev)
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/igdConfig.cmake.in" "${PROJECT_BINARY_DIR}/igdConfig.cmake"
  INSTALL_DESTINATION "${igd_cmake_dir}" NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/igdConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/igdConfig.cmake" "${PROJECT_BINARY_DIR}/igdConfigVersion.cmake"
  DESTINATION "${igd_cmake_dir}" COMPONENT libigd-dev)

# Relative to the file itself, so that an installed tree can be moved.
file(RELATIVE_PATH igd_prefix_from_pc "/${igd_pkgconfig_dir}" "/")
configure_file("${CMAKE_CURRENT_LIST_DIR}/libigd.pc.in" "${PROJECT_BINARY_DIR}/libigd.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/libigd.pc"
  DESTINATION "${igd_pkgconfig_dir}" COMPONENT libigd-dev)
