# Packages, by cpack: for Debian from the preset debian, of the sources from any build, and for
# Windows from both builds for it.
set(CPACK_PACKAGE_NAME kezlib)
set(CPACK_PACKAGE_VENDOR "KezLib developers")
set(CPACK_PACKAGE_CONTACT "KezLib developers <kezlib@example.org>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/packages)
set(CPACK_PACKAGE_CHECKSUM SHA256)
# Else it would stand before what each package says of itself.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_GENERATOR TXZ)
set(CPACK_SOURCE_GENERATOR TXZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME kezlib-${PROJECT_VERSION})
set(CPACK_SOURCE_IGNORE_FILES
  ${PROJECT_SOURCE_DIR}/build/ /\\\\.git/ /\\\\.git$ __pycache__ OUTPUT\\\\.TXT)

if(WIN32)
  # Seen from one of the two builds, the other stands beside it.
  cmake_path(GET PROJECT_BINARY_DIR PARENT_PATH builds)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME kezlib-${PROJECT_VERSION}-windows)
  set(CPACK_INSTALL_CMAKE_PROJECTS
    "${builds}/windows-x86;KezLib;ALL;/;${builds}/windows-x64;KezLib;ALL;/")
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development python tools kezsection)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

string(CONCAT about "\nStand-alone single-precision routines for host programs that design steel\n"
  "structures: plane and space geometry, lists and polygons, steel sections.")
set(soname libkezlib${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${soname})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "numeric routines for steel design${about}")

set(this_version "(= ${PROJECT_VERSION}-1)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkezlib-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${soname} ${this_version}, libc6-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "numeric routines for steel design (header)${about}\n\n\
What programs in C and C++ need to be built with it, and for other languages\n\
bindings in /usr/share/kezlib/bindings.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-kezlib)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "${soname} ${this_version}, python3 (>= 3.9)")
set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS python3-numpy)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
  ${PROJECT_SOURCE_DIR}/cmake/debian/python3/postinst
  ${PROJECT_SOURCE_DIR}/cmake/debian/python3/prerm)
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "numeric routines for steel design (Python 3)${about}\n\n\
The package kezlib, with a function for every routine.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME kezlib-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION math)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${soname} ${this_version}")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "numeric routines for steel design (command line)${about}\n\n\
kezcall calls any of them with values, and runs files of worked calls.")

set(CPACK_DEBIAN_KEZSECTION_PACKAGE_NAME kezsection)
set(CPACK_DEBIAN_KEZSECTION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_KEZSECTION_PACKAGE_SECTION science)
set(CPACK_DEBIAN_KEZSECTION_PACKAGE_DEPENDS "python3-kezlib ${this_version}, python3 (>= 3.9)")
set(CPACK_DEBIAN_KEZSECTION_PACKAGE_SUGGESTS "python3-distributed, python3-ezdxf, python3-tqdm")
set(CPACK_DEBIAN_KEZSECTION_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_KEZSECTION_PACKAGE_CONTROL_EXTRA
  ${PROJECT_SOURCE_DIR}/cmake/debian/kezsection/postinst
  ${PROJECT_SOURCE_DIR}/cmake/debian/kezsection/prerm)
set(CPACK_DEBIAN_KEZSECTION_DESCRIPTION "section sheets of steel sections by Eurocode 3\n\
Reads steel sections with their forces, and writes a sheet for each: gross\n\
values, classes, effective values, resistances and utilisations.")

# Each package for Debian has papers of its own.
function(install_papers component package)
  set(folder ${PROJECT_BINARY_DIR}/papers/${package})
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  configure_file(cmake/debian/changelog.in ${folder}/changelog.Debian @ONLY)
  configure_file(cmake/debian/copyright ${folder}/copyright COPYONLY)
  execute_process(COMMAND gzip -9nf ${folder}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${folder}/changelog.Debian.gz ${folder}/copyright
    DESTINATION share/doc/${package} COMPONENT ${component})
endfunction()

if(KEZLIB_DEBIAN)
  install_papers(runtime ${soname})
  install_papers(development libkezlib-dev)
  install_papers(python python3-kezlib)
  install_papers(tools kezlib-tools)
  install_papers(kezsection kezsection)

  # Where Debian's Python looks for packages, with what tells pip that this one is there.
  set(dist_info ${PROJECT_BINARY_DIR}/kezlib-${PROJECT_VERSION}.dist-info)
  file(CONFIGURE OUTPUT ${dist_info}/METADATA
    CONTENT "Metadata-Version: 2.1\nName: kezlib\nVersion: @PROJECT_VERSION@\n" @ONLY)
  install(DIRECTORY
    ${PROJECT_BINARY_DIR}/bindings/python/kezlib bindings/python/kezlib ${dist_info}
    DESTINATION lib/python3/dist-packages COMPONENT python)
  set(dist_info ${PROJECT_BINARY_DIR}/kezsection-${PROJECT_VERSION}.dist-info)
  file(CONFIGURE OUTPUT ${dist_info}/METADATA
    CONTENT "Metadata-Version: 2.1\nName: kezsection\nVersion: @PROJECT_VERSION@\n" @ONLY)
  install(DIRECTORY ${dist_info} DESTINATION lib/python3/dist-packages COMPONENT kezsection)
endif()
include(CPack)
