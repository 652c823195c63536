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
