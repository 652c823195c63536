# What a host gets: the library, and to build with it the header, a CMake package and a pkg-config
# file; and kezcall. The components are the packages of cmake/KezLibPackages.cmake.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KezLib)
install(FILES include/kezbatch.h include/kezlib.h TYPE INCLUDE COMPONENT development)
install(TARGETS KezLib EXPORT KezLib
  RUNTIME COMPONENT runtime
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development)
install(EXPORT KezLib FILE KezLibTargets.cmake NAMESPACE KezLib:: DESTINATION ${package_dir}
  COMPONENT development)

configure_package_config_file(cmake/KezLibConfig.cmake.in KezLibConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(KezLibConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/KezLibConfig.cmake
  ${PROJECT_BINARY_DIR}/KezLibConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT development)

# Relative to the file's own place, so that an installed tree can be moved.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE prefix_from_pkgconfig)
if(NOT BUILD_SHARED_LIBS)
  set(pkgconfig_libs " -lm")
  if(WIN32)
    set(pkgconfig_cflags " -DKEZ_API=")
  endif()
endif()
configure_file(cmake/kezlib.pc.in kezlib.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kezlib.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

if(TARGET kezcall)
  # An installed tree can be moved: kezcall finds the library from its own place.
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR
    BASE_DIRECTORY ${CMAKE_INSTALL_FULL_BINDIR} OUTPUT_VARIABLE lib_from_bin)
  set_target_properties(kezcall PROPERTIES
    INSTALL_RPATH "$ORIGIN;$ORIGIN/${lib_from_bin}")
  install(TARGETS kezcall RUNTIME COMPONENT tools)
endif()

# The bindings: what is generated, and beside it what is written by hand. They are the same for all
# machines: below one folder that holds packages of several, they stand once.
if(TARGET bindings)
  set(bindings_dir ${CMAKE_INSTALL_DATADIR}/kezlib/bindings)
  if(WIN32)
    set(bindings_dir bindings)
  endif()
  install(DIRECTORY ${PROJECT_BINARY_DIR}/bindings/ bindings/ DESTINATION ${bindings_dir}
    COMPONENT development PATTERN javascript EXCLUDE)
  # JavaScript's package is of no use without what the preset wasm makes of the library.
  set(made ${PROJECT_SOURCE_DIR}/build/wasm/package)
  install(CODE "
    if(EXISTS \"${made}/embedded.js\")
      file(INSTALL
        \"${made}/kezlib.wasm\" \"${made}/embedded.js\" \"${made}/kezlib.browser.js\"
        \"${made}/package.json\"
        \"${PROJECT_SOURCE_DIR}/bindings/javascript/\"
        \"${PROJECT_BINARY_DIR}/bindings/javascript/\"
        DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${bindings_dir}/javascript\")
    endif()" COMPONENT development)
endif()

# The section sheet, a Python program on the binding; on Windows pip installs it.
if(TARGET bindings AND NOT WIN32)
  set(kezsection_dir ${CMAKE_INSTALL_DATADIR}/kezlib/kezsection)
  set(kezsection kezsection/bin/kezsection)
  if(KEZLIB_DEBIAN)
    # Debian's Python has Debian's packages, whichever comes first in the path.
    set(kezsection_dir lib/python3/dist-packages)
    file(READ ${kezsection} program)
    string(REPLACE "/usr/bin/env python3" "/usr/bin/python3" program "${program}")
    set(kezsection ${PROJECT_BINARY_DIR}/kezsection)
    file(CONFIGURE OUTPUT ${kezsection} CONTENT "${program}" @ONLY)
    install(FILES kezsection/README.md examples/sections.txt DESTINATION share/doc/kezsection
      COMPONENT kezsection)
  endif()
  install(DIRECTORY kezsection/kezsection DESTINATION ${kezsection_dir} COMPONENT kezsection
    PATTERN __pycache__ EXCLUDE)
  install(PROGRAMS ${kezsection} TYPE BIN COMPONENT kezsection)
endif()

if(WIN32 AND BUILD_SHARED_LIBS)
  # Below one folder the packages of both machines, each in a folder of its own.
  install(FILES ${imports} DESTINATION ${CMAKE_INSTALL_LIBDIR} RENAME kezlib.def
    COMPONENT development)
  install(FILES ${PROJECT_BINARY_DIR}/KezLib.lib DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT development OPTIONAL)  # where msvc_import_library is built
  write_basic_package_version_file(windows/KezLibConfigVersion.cmake
    COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
  install(FILES ${PROJECT_BINARY_DIR}/windows/KezLibConfigVersion.cmake
    cmake/windows/KezLibConfig.cmake DESTINATION cmake COMPONENT development)
  install(FILES README.md CHANGELOG.md DESTINATION . COMPONENT development)
endif()
