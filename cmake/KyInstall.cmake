# What is installed, and the two Debian packages made of it: `runtime` (the libraries, kytm and its manual page) and
# `development` (headers, the CMake package, the pkg-config file, examples). The libraries and headers themselves are
# listed where they are made, in ky_add_library.

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/CorvaneTypeManager)

install(EXPORT CorvaneTypeManagerTargets
  NAMESPACE CorvaneTypeManager::
  DESTINATION ${package_dir}
  COMPONENT development)

configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/CorvaneTypeManagerConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/CorvaneTypeManagerConfig.cmake
  INSTALL_DESTINATION ${package_dir}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/CorvaneTypeManagerConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/CorvaneTypeManagerConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/CorvaneTypeManagerConfigVersion.cmake
  DESTINATION ${package_dir}
  COMPONENT development)

# The prefix is found from the file's own place, so that what is installed or unpacked anywhere works there.
cmake_path(SET pkgconfig_dir ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${pkgconfig_dir} OUTPUT_VARIABLE pkgconfig_to_prefix)
configure_file(
  ${CMAKE_CURRENT_LIST_DIR}/corvane-typemanager.pc.in
  ${CMAKE_CURRENT_BINARY_DIR}/corvane-typemanager.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/corvane-typemanager.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

install(FILES ${PROJECT_SOURCE_DIR}/docs/kytm.1
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT runtime)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/corvane-typemanager-dev
  COMPONENT development)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane-typemanager)
set(CPACK_PACKAGE_VENDOR "Corvane")
set(CPACK_PACKAGE_CONTACT "Corvane <maintainers@corvane.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# Root owns the files, and a directory is not writable for others, whoever makes the package under whatever umask.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME corvane-typemanager)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${PROJECT_BINARY_DIR}/platform/base ${PROJECT_BINARY_DIR}/platform/i18n ${PROJECT_BINARY_DIR}/typemgr)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "values of an object database: type manager and platform libraries
Stores, loads, measures, compares, hashes, bounds, prints and scans values
of 47 types by a type id. With the program kytm, which does the same from
the command line.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME corvane-typemanager-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "corvane-typemanager (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "values of an object database: headers and examples
Public headers, the CMake package CorvaneTypeManager, the pkg-config file
corvane-typemanager, and example programs.")

include(CPack)
