# One interface target carries what every target of ours is compiled with.
add_library(kestra_flags INTERFACE)
target_compile_features(kestra_flags INTERFACE cxx_std_20 c_std_99)
target_compile_options(kestra_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# GCC 12 sees overlaps in optimised string assignments where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kestra_flags INTERFACE -Wno-restrict)
endif()

# Programs that nobody is given are linked by the quicker of the linkers: a build for tests has sixty of them.
if(NOT WIN32 AND NOT CMAKE_BUILD_TYPE STREQUAL "Release")
  find_program(KESTRA_QUICK_LINKER ld.lld)
  if(KESTRA_QUICK_LINKER)
    add_link_options(-fuse-ld=lld)
  endif()
endif()

if(KESTRA_SANITIZE)
  target_compile_options(kestra_flags INTERFACE -fsanitize=address,undefined
                                                -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kestra_flags INTERFACE -fsanitize=address,undefined)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # A host in C brings the run time for the library in C++ that it loads.
    target_link_options(kestra_flags INTERFACE -fsanitize-link-c++-runtime)
    target_link_libraries(kestra_flags INTERFACE stdc++)
    set(runtimes libclang_rt.asan-${CMAKE_SYSTEM_PROCESSOR}.so)
  else()
    set(runtimes libasan.so libubsan.so)
  endif()
  # A program that is not instrumented, as Python, must have the run time before it loads the library.
  set(KESTRA_PRELOAD "")
  foreach(runtime ${runtimes})
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    list(APPEND KESTRA_PRELOAD ${path})
  endforeach()
  list(JOIN KESTRA_PRELOAD ":" KESTRA_PRELOAD)
endif()

# Clang's counters, in every target: an inline function of a header is one function of the program, and the
# linker may take any object's copy of it.
if(KESTRA_COVERAGE OR KESTRA_MCDC)
  target_compile_options(kestra_flags INTERFACE -O0 -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(kestra_flags INTERFACE -fprofile-instr-generate)
endif()
# Warnings are for the compilers that the project is built with; this one is younger than the library's headers.
if(KESTRA_MCDC)
  target_compile_options(kestra_flags INTERFACE -fcoverage-mcdc -Wno-error -Wno-deprecated-declarations)
endif()

if(KESTRA_FUZZ)
  # Comparisons are not traced: dictionaries have the words, and a run costs a third less.
  target_compile_options(kestra_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                -fno-sanitize-coverage=trace-cmp
                                                -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kestra_flags INTERFACE -fsanitize=address,undefined)
endif()
