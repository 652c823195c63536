# The package of the machine that is built for.
set(KezLib_folder ${CMAKE_CURRENT_LIST_DIR}/../x86)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(KezLib_folder ${CMAKE_CURRENT_LIST_DIR}/../x64)
endif()
include(${KezLib_folder}/cmake/KezLib/KezLibConfig.cmake)
if(MSVC)
  set_target_properties(KezLib::KezLib PROPERTIES
    IMPORTED_IMPLIB_RELEASE ${KezLib_folder}/KezLib.lib)
endif()
