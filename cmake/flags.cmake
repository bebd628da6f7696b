# One interface target carries what every target of ours is compiled with.
add_library(kestra_flags INTERFACE)
target_compile_features(kestra_flags INTERFACE cxx_std_20 c_std_99)
target_compile_options(kestra_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# GCC 12 sees overlaps in optimised string assignments where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kestra_flags INTERFACE -Wno-restrict)
endif()

if(KESTRA_SANITIZE)
  target_compile_options(kestra_flags INTERFACE -fsanitize=address,undefined
                                                -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kestra_flags INTERFACE -fsanitize=address,undefined)
endif()

if(KESTRA_COVERAGE)
  target_compile_options(kestra_flags INTERFACE --coverage -O0)
  target_link_options(kestra_flags INTERFACE --coverage)
endif()
