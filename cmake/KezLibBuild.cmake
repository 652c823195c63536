# How the library is compiled and linked, on each of its platforms.
include(GNUInstallDirs)

target_compile_features(kezlib_objects PUBLIC cxx_std_20)
target_include_directories(kezlib_objects PUBLIC src include)
set_target_properties(kezlib_objects PROPERTIES
  CXX_EXTENSIONS OFF
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON
  POSITION_INDEPENDENT_CODE ON)

# Single precision as written: no contraction of a*b + c, and on 32-bit x86 no x87 registers, whose
# extra digits would change results. Nothing reads errno, so sqrt may be one instruction. Public, so
# that inline geometry computes the same in the tests.
target_compile_options(kezlib_objects PUBLIC -ffp-contract=off -fno-math-errno)
# On 32-bit Linux too, a file that the library writes may grow past 2 GiB.
target_compile_definitions(kezlib_objects PRIVATE _FILE_OFFSET_BITS=64)
# Nothing throws, and no host would catch it.
target_compile_options(kezlib_objects PRIVATE -fno-exceptions -fno-rtti)
# Hosts may run on small stacks.
target_compile_options(kezlib_objects PRIVATE $<$<CONFIG:Release>:-Wframe-larger-than=16384>)
# Hosts of 32-bit x86 may keep the stack aligned to 4 bytes only, SSE code expects 16: every entry
# realigns.
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|i.86|AMD64|X86)$")
  target_compile_options(kezlib_objects PUBLIC -msse2 -mfpmath=sse PRIVATE -mstackrealign)
endif()

# Hosts may trap floating-point exceptions, but clang divides before it knows that it should, and
# on ARM needs more than one word for it: there its back end forgets it again.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND NOT EMSCRIPTEN)
  target_compile_options(kezlib_objects PRIVATE -ffp-exception-behavior=maytrap)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
    target_compile_options(kezlib_objects PRIVATE
      "SHELL:-Xclang -fexperimental-strict-floating-point"
      "SHELL:-mllvm -aarch64-enable-early-ifcvt=0")
  endif()
endif()

# gcc all the same fuses pairs of products, one pair added and one subtracted, into one instruction
# of processors that have it (-march=x86-64-v3 or native), unless told that there is none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|i.86|AMD64|X86)$")
    target_compile_options(kezlib_objects PUBLIC -mno-fma -mno-fma4 -mno-avx512vl)
  endif()

  # These are as fast without the inlining that pays for small geometry, and much smaller.
  set_source_files_properties(
    src/circles/guided_points.cpp src/frame/keys.cpp src/frame/sampling.cpp
    src/frame/sorting.cpp src/frame/tables.cpp src/lists/lists.cpp src/lists/near_values.cpp
    src/lists/ordering.cpp src/sections/shapes.cpp
    PROPERTIES COMPILE_OPTIONS "$<$<CONFIG:Release>:-O2;-fvect-cost-model=dynamic>")
  # One loop for each number of arguments, which the calls keep busy.
  set_source_files_properties(src/batch/batch.cpp
    PROPERTIES COMPILE_OPTIONS "$<$<CONFIG:Release>:-Os>")
  # Short loops over long lists, which run a third slower where they cross a line of the decoder.
  set_source_files_properties(src/frame/point_lists.cpp PROPERTIES COMPILE_OPTIONS -falign-loops=32)
endif()

# The same bytes wherever the sources stand.
target_compile_options(kezlib_objects PRIVATE
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -ffile-prefix-map=${PROJECT_BINARY_DIR}/=)
# What is given away as a whole checks itself and has no symbols but the exported. The sanitizers of
# other builds see more with the checks left out.
if(BUILD_SHARED_LIBS)
  target_compile_options(kezlib_objects PRIVATE
    $<$<CONFIG:Release>:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>)
endif()

target_include_directories(KezLib INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
# Linked as C: the library needs the C library and its mathematics, not that of C++.
set_target_properties(KezLib PROPERTIES
  LINKER_LANGUAGE C
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
if(NOT WIN32)
  target_link_libraries(KezLib PRIVATE m)
endif()
target_link_options(KezLib PRIVATE $<$<CONFIG:Release>:-s;-fstack-protector-strong>)

if(NOT BUILD_SHARED_LIBS)
  # Nothing to import where hosts link the routines themselves.
  target_compile_definitions(KezLib INTERFACE $<$<BOOL:${WIN32}>:KEZ_API=>)
elseif(WIN32)
  include(cmake/KezLibWindows.cmake)
elseif(NOT APPLE)
  # Hidden visibility does not reach what the templates of the C++ library become here.
  # Two segments load faster than four.
  target_link_options(KezLib PRIVATE
    -Wl,--version-script=${PROJECT_SOURCE_DIR}/src/kezlib.map -Wl,--as-needed
    -Wl,-z,noseparate-code -Wl,-z,relro -Wl,-z,now -Wl,-Bsymbolic-functions)
  set_property(TARGET KezLib APPEND PROPERTY LINK_DEPENDS ${PROJECT_SOURCE_DIR}/src/kezlib.map)
endif()
