# What the two Windows tool-chains share.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${mingw}-gcc)
set(CMAKE_CXX_COMPILER ${mingw}-g++)
set(CMAKE_RC_COMPILER ${mingw}-windres)
set(CMAKE_DLLTOOL ${mingw}-dlltool)
set(CMAKE_FIND_ROOT_PATH /usr/${mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# Programs carry the compiler's runtime with them, so that the tests run without it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
