# What compilers are asked to look for, in all that is built here.

# Who builds the library within a project of his own has his own warnings.
if(PROJECT_IS_TOP_LEVEL)
  add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wdouble-promotion)
  # Which clang asks for by -Wconversion in C++ too, and gcc does not.
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-sign-conversion>)
endif()

if(KEZLIB_SANITIZERS)
  add_compile_options(
    -fsanitize=${KEZLIB_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KEZLIB_SANITIZERS})
endif()
