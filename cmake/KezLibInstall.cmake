# What a host gets: the header, the library, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KezLib)
install(FILES include/kezlib.h TYPE INCLUDE)
install(TARGETS KezLib EXPORT KezLib)
install(EXPORT KezLib FILE KezLibTargets.cmake NAMESPACE KezLib:: DESTINATION ${package_dir})

configure_package_config_file(cmake/KezLibConfig.cmake.in KezLibConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(KezLibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/KezLibConfig.cmake
  ${PROJECT_BINARY_DIR}/KezLibConfigVersion.cmake
  DESTINATION ${package_dir})

# Relative to the file's own place, so that an installed tree can be moved.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE prefix_from_pkgconfig)
configure_file(cmake/kezlib.pc.in kezlib.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kezlib.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
