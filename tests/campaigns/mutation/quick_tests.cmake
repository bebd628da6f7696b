# The top file of a private copy of the tree: the core and its quick tests, built for speed. Warnings do not
# count, because a mutant may well leave something unused.
cmake_minimum_required(VERSION 3.25)
project(kestra_quick_tests VERSION 0 LANGUAGES C CXX)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(KESTRA_PLATFORM posix)
include(GNUInstallDirs)
include(cmake/flags.cmake)
find_package(GTest REQUIRED)

# An index out of its range is caught, not read.
add_compile_options(-O0 -g0 -w)
add_compile_definitions(_GLIBCXX_ASSERTIONS)
add_link_options(-fuse-ld=lld)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# Here the programs are run by hand.
function(kestra_discover_tests)
endfunction()

add_subdirectory(src)
add_subdirectory(tests/exports)
add_subdirectory(tests/fakes)
add_subdirectory(tests/unit)
add_subdirectory(tests/golden)

get_property(layers GLOBAL PROPERTY KESTRA_LAYERS)
foreach(layer ${layers})
  target_precompile_headers(${layer} PRIVATE <algorithm> <array> <charconv> <cmath> <cstdint> <cstdio>
    <exception> <functional> <limits> <map> <memory> <optional> <string> <string_view> <utility> <vector>)
endforeach()
foreach(program unit_tests golden_tests)
  target_precompile_headers(${program} PRIVATE <gtest/gtest.h> <algorithm> <array> <cmath> <functional>
    <map> <sstream> <string> <string_view> <vector>)
endforeach()
