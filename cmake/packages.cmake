# Debian packages, one a component: cpack -G DEB in the build folder. With SOURCE_DATE_EPOCH set, two
# builds of one commit give the same packages.
set(IGD_PACKAGE_CONTACT "The igd developers <igd@packages.invalid>" CACHE STRING
  "Who answers for the packages: name <address>")
set(igd_package_version "${PROJECT_VERSION}-1")
set(igd_exactly "(= ${igd_package_version})")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_CONTACT "${IGD_PACKAGE_CONTACT}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_NAME igd)
set(CPACK_DEBIAN_PACKAGE_SOURCE igd)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The files that every package has of itself.
string(TIMESTAMP igd_release_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(igd_package_files "${PROJECT_BINARY_DIR}/package_files")
configure_file("${PROJECT_SOURCE_DIR}/packaging/debian/changelog.in"
  "${igd_package_files}/changelog.Debian" @ONLY)
file(WRITE "${igd_package_files}/triggers" "activate-noawait ldconfig\n")
file(WRITE "${igd_package_files}/shlibs"
  "libigd ${PROJECT_VERSION_MAJOR} libigd1 (>= ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})\n")
file(READ "${PROJECT_SOURCE_DIR}/packaging/debian/lintian-overrides" igd_overrides)
execute_process(COMMAND gzip -9nkf changelog.Debian
  WORKING_DIRECTORY "${igd_package_files}" COMMAND_ERROR_IS_FATAL ANY)

# Overrides of lintian, each with its reason: those of all packages, then the package's own.
function(igd_install_overrides name)
  set(overrides "${igd_overrides}")
  set(own "${PROJECT_SOURCE_DIR}/packaging/debian/${name}.lintian-overrides")
  if(EXISTS "${own}")
    file(READ "${own}" own_overrides)
    string(APPEND overrides "${own_overrides}")
  endif()
  file(WRITE "${igd_package_files}/overrides/${name}" "${overrides}")
  install(FILES "${igd_package_files}/overrides/${name}"
    DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides" COMPONENT ${name})
endfunction()

# igd_package(<name> SECTION <section> SUMMARY <line> TEXT <lines> [DEPENDS <packages>]
#             [CONTROL <files>])
function(igd_package name)
  cmake_parse_arguments(PARSE_ARGV 1 package "" "SECTION;SUMMARY;TEXT;DEPENDS" "CONTROL")
  string(TOUPPER "${name}" key)
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/debian/copyright"
    "${igd_package_files}/changelog.Debian.gz"
    DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${name}" COMPONENT ${name})
  igd_install_overrides(${name})
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${package_SECTION} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${package_DEPENDS}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${package_SUMMARY}\n${package_TEXT}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA "${package_CONTROL}" PARENT_SCOPE)
endfunction()

igd_package(libigd1 SECTION libs
  CONTROL "${igd_package_files}/triggers" "${igd_package_files}/shlibs"
  DEPENDS "libcommon-util-host | libcommon-util"
  SUMMARY "WAN connections of a home gateway"
  TEXT "Creates, changes, reads and removes the WAN connections of a home gateway, with
the bridges, ports and VLANs that carry them, in the configuration tree that
the platform library libcommon_util owns.")
igd_package(libigd-dev SECTION libdevel
  DEPENDS "libigd1 ${igd_exactly}, libcommon-util-host ${igd_exactly}"
  SUMMARY "WAN connections of a home gateway - development files"
  TEXT "Headers of libigd and of the platform it runs on, and the files by which CMake
and pkg-config find it.")
igd_package(libcommon-util-host SECTION libs
  CONTROL "${igd_package_files}/triggers"
  SUMMARY "reference platform for libigd on a workstation"
  TEXT "The libcommon_util that libigd runs on without a gateway: the configuration
tree of a gateway, following its data model, in an SQLite file that several
processes share.")
igd_package(libcommon-util-host-dev SECTION libdevel
  DEPENDS "libcommon-util-host ${igd_exactly}, libigd-dev ${igd_exactly}"
  SUMMARY "reference platform for libigd - administration headers"
  TEXT "Headers for programs that administer the reference platform: its trees, imports
of parameter dumps, its store with trials and checkpoints, its debug log.")
if(TARGET igdctl)
  igd_package(igdctl SECTION net
    DEPENDS "libigd1 ${igd_exactly}, libcommon-util-host ${igd_exactly}"
    SUMMARY "command line for the WAN connections of a home gateway"
    TEXT "Shows and changes the WAN connections, bridges, routes and settings of a
gateway's configuration tree through libigd.")
endif()
set(CPACK_DEBIAN_LIBCOMMON-UTIL-HOST_PACKAGE_PROVIDES libcommon-util)
include(CPack)
