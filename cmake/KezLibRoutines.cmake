# The names of the header's routines in order, which kezbatch finds routines by. It needs no Python,
# so that the library is built by a compiler and CMake alone.
file(STRINGS include/kezlib.h routines REGEX "^KEZ_API void KEZ_CALL kez")
list(TRANSFORM routines REPLACE "^KEZ_API void KEZ_CALL (kez[a-z0-9_]+)\\(.*$" "KEZ_ROUTINE(\\1)")
list(SORT routines)
list(JOIN routines "\n" routines)
file(CONFIGURE OUTPUT batch/routines.inc CONTENT "@routines@\n" @ONLY)
target_include_directories(kezlib_objects PRIVATE ${PROJECT_BINARY_DIR}/batch)
