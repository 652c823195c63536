# The DLL, its exports and its import library.

# The DLL needs nothing but the system's own, and exports what the module definition names.
target_link_options(KezLib PRIVATE -static -Wl,--no-insert-timestamp)
set_target_properties(KezLib PROPERTIES PREFIX "" IMPORT_PREFIX "lib")

file(STRINGS src/kezlib.def definitions REGEX "^    kez")
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  # Only standard call decorates names.
  list(TRANSFORM definitions REPLACE "^ *([^ ]+) = .+$" "    \\1")
  list(JOIN definitions "\n" names)
  set(module_definition ${PROJECT_BINARY_DIR}/kezlib.def)
  set(imports ${module_definition})
  set(machine i386:x86-64)
  file(CONFIGURE OUTPUT ${module_definition} CONTENT "LIBRARY KezLib.dll\nEXPORTS\n@names@\n" @ONLY)
else()
  set(module_definition ${PROJECT_SOURCE_DIR}/src/kezlib.def)
  set(imports ${PROJECT_BINARY_DIR}/imports.def)
  set(machine i386)
  # Compilers refer to a standard-call routine as name@bytes, the exports are called name and
  # _name@bytes. This import library serves hosts that link to name@bytes or to name.
  list(TRANSFORM definitions REPLACE "^ *([^ ]+) = (.+)$" "    \\2\n    \\1")
  list(JOIN definitions "\n" names)
  file(CONFIGURE OUTPUT ${imports} CONTENT "LIBRARY KezLib.dll\nEXPORTS\n@names@\n" @ONLY)
  # Its members are named for the path that it is written to.
  add_custom_command(TARGET KezLib POST_BUILD
    COMMAND ${CMAKE_DLLTOOL} --deterministic-libraries --kill-at
            --input-def ${imports}
            --output-lib $<TARGET_LINKER_FILE_NAME:KezLib>
    WORKING_DIRECTORY $<TARGET_LINKER_FILE_DIR:KezLib>
    VERBATIM)
endif()
configure_file(cmake/KezLib.rc.in KezLib.rc @ONLY)
target_sources(KezLib PRIVATE ${module_definition} ${PROJECT_BINARY_DIR}/KezLib.rc)

# The import library for Microsoft's linker, which only packages need.
add_custom_target(msvc_import_library
  COMMAND llvm-dlltool -k -m ${machine} -d ${imports} -l KezLib.lib
  BYPRODUCTS KezLib.lib
  VERBATIM)
