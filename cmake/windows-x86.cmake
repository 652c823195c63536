# 32-bit Windows, cross-built with MinGW-w64 and run by Wine.
set(CMAKE_SYSTEM_PROCESSOR X86)
set(mingw i686-w64-mingw32)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/launchers/wine-x86)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
