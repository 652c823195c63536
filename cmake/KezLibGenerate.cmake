# What follows from the header and is made at build time. Only this needs Python.
find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)

# Writes a product of tools/interface to a file, again when the header or its generator has changed.
function(kezlib_generate product file)
  set(generator ${PROJECT_SOURCE_DIR}/tools/interface)
  file(GLOB reader CONFIGURE_DEPENDS ${generator}/*.py)
  add_custom_command(OUTPUT ${file}
    COMMAND ${Python3_EXECUTABLE} -B ${generator} ${product} ${file}
    DEPENDS ${reader} ${generator}/writers/__init__.py ${generator}/writers/${product}.py
            ${PROJECT_SOURCE_DIR}/include/kezlib.h
    VERBATIM)
endfunction()

# Writes the bindings' products into a folder, each below that of its language.
function(kezlib_generate_bindings folder)
  set(generator ${PROJECT_SOURCE_DIR}/tools/interface)
  file(GLOB sources CONFIGURE_DEPENDS ${generator}/*.py ${generator}/writers/*.py)
  add_custom_command(OUTPUT ${folder}.stamp
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${folder}
    COMMAND ${Python3_EXECUTABLE} -B ${generator} --bindings ${folder}
    COMMAND ${CMAKE_COMMAND} -E touch ${folder}.stamp
    DEPENDS ${sources} ${PROJECT_SOURCE_DIR}/include/kezlib.h
    VERBATIM)
  add_custom_target(bindings ALL DEPENDS ${folder}.stamp)
endfunction()
