# The library as one WebAssembly module, and the JavaScript package with it.
include(cmake/KezLibGenerate.cmake)

# Debian's Emscripten brings a standard library that is older than its compiler.
target_compile_options(kezlib_objects PRIVATE
  "SHELL:-include ${PROJECT_SOURCE_DIR}/cmake/javascript/bit_cast.h")

file(STRINGS src/kezlib.def exports REGEX "^    kez")
list(TRANSFORM exports REPLACE "^ *([^ ]+) .+$" "_\\1")
list(JOIN exports "\n" exports)
file(CONFIGURE OUTPUT exports.txt CONTENT "@exports@\n_malloc\n_free\n" @ONLY)

set(package ${PROJECT_BINARY_DIR}/package)
add_executable(kezlib_wasm cmake/javascript/host.c)
target_link_libraries(kezlib_wasm PRIVATE KezLib)
set_target_properties(kezlib_wasm PROPERTIES
  OUTPUT_NAME kezlib
  SUFFIX .wasm
  RUNTIME_OUTPUT_DIRECTORY ${package}
  LINK_DEPENDS ${PROJECT_BINARY_DIR}/exports.txt)
# Routines that sort take 20 KiB of the stack, and callbacks may nest calls. A stack that is first
# ends in a trap, and not in the data.
target_link_options(kezlib_wasm PRIVATE
  --no-entry -Wl,--stack-first
  -sSTANDALONE_WASM -sALLOW_MEMORY_GROWTH -sTOTAL_STACK=1MB -sINITIAL_MEMORY=2MB
  -sEXPORTED_FUNCTIONS=@${PROJECT_BINARY_DIR}/exports.txt)

# The rest of the package stands beside it.
configure_file(cmake/javascript/package.json.in ${package}/package.json @ONLY)
kezlib_generate(javascript ${package}/routines.js)
kezlib_generate(typescript ${package}/kezlib.d.ts)
file(GLOB by_hand CONFIGURE_DEPENDS bindings/javascript/*)
foreach(file IN LISTS by_hand)
  cmake_path(GET file FILENAME name)
  configure_file(${file} ${package}/${name} COPYONLY)
endforeach()

find_program(ESBUILD esbuild REQUIRED)
set(options --bundle --minify --target=es2020 --log-level=warning)
# The bytes as the text of a module, which needs neither a file nor a loader of a bundler.
add_custom_command(OUTPUT ${package}/embedded.js
  COMMAND ${ESBUILD} kezlib.wasm ${options} --format=esm --loader:.wasm=binary
          --outfile=embedded.js
  WORKING_DIRECTORY ${package}
  DEPENDS kezlib_wasm
  VERBATIM)
add_custom_command(OUTPUT ${package}/kezlib.browser.js
  COMMAND ${ESBUILD} browser.js ${options} --format=iife --global-name=kezlib
          --outfile=kezlib.browser.js
  WORKING_DIRECTORY ${package}
  DEPENDS ${package}/embedded.js ${package}/routines.js ${by_hand}
  VERBATIM)
add_custom_target(javascript ALL DEPENDS ${package}/kezlib.browser.js ${package}/kezlib.d.ts)
