# Headers of others that most sources include, compiled once for a build and used by all of its programs: without
# that they are two thirds of a test's cost. A source still includes what it uses (rules.own_includes sees to it),
# and what is shipped is compiled without any of this.

# kestra_precompiled(NAME LIBRARIES HEADERS...): an object library that has the headers ready.
function(kestra_precompiled name libraries)
  foreach(language c cpp)
    set(unit ${CMAKE_CURRENT_BINARY_DIR}/${name}.${language})
    if(NOT EXISTS ${unit})
      file(WRITE ${unit} "typedef int nothing_else;\n")
    endif()
    list(APPEND units ${unit})
  endforeach()
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${units})
  target_link_libraries(${name} PRIVATE kestra_flags ${libraries})
  list(TRANSFORM ARGN REPLACE "(.+)" "$<$<COMPILE_LANGUAGE:CXX>:<\\1$<ANGLE-R>>")
  # A program that has a source in C beside the others wants headers for that too; these cost nothing.
  target_precompile_headers(${name} PRIVATE ${ARGN} $<$<COMPILE_LANGUAGE:C>:<stddef.h$<ANGLE-R>>)
endfunction()

# kestra_targets_below(FOLDER RESULT): all that is built there and further down.
function(kestra_targets_below folder result)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(below ${folders})
    kestra_targets_below(${below} more)
    list(APPEND targets ${more})
  endforeach()
  set(${result} ${targets} PARENT_SCOPE)
endfunction()

# kestra_headers_for(TARGET RESULT): which of the precompiled ones suit it; empty if none does.
function(kestra_headers_for target result)
  foreach(property TYPE SOURCES SOURCE_DIR LINK_LIBRARIES COMPILE_DEFINITIONS
      POSITION_INDEPENDENT_CODE)
    get_target_property(${property} ${target} ${property})
  endforeach()
  list(FILTER SOURCES INCLUDE REGEX "\\.cpp$")
  cmake_path(RELATIVE_PATH SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
  set(headers "")
  if(NOT TYPE MATCHES "EXECUTABLE|(STATIC|OBJECT|SHARED|MODULE)_LIBRARY" OR NOT SOURCES OR NOT LINK_LIBRARIES)
    # Nothing to compile, or a header alone to try.
  elseif(SOURCE_DIR MATCHES "^\\.\\.|^/")
    # Not ours.
  elseif("${LINK_LIBRARIES}" MATCHES "GTest::gtest")
    set(headers kestra_test_headers)
  elseif(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    # Shipped, or to be as quick as what is; and the optimiser warns of what it finds in headers from such a file.
  elseif("${COMPILE_DEFINITIONS}" MATCHES "ASIO_STANDALONE")
    set(headers kestra_line_headers)
  elseif(POSITION_INDEPENDENT_CODE)
    set(headers kestra_library_headers)
  else()
    set(headers kestra_headers)
  endif()
  set(${result} "${headers}" PARENT_SCOPE)
endfunction()

# kestra_precompile(): for all targets of the project. Called when they are all there.
function(kestra_precompile)
  set(standard algorithm array charconv chrono cstddef cstdint cstdio cstdlib cstring filesystem fstream
    functional limits map memory optional span sstream stdexcept string string_view utility vector)
  kestra_targets_below(${PROJECT_SOURCE_DIR} targets)
  kestra_precompiled(kestra_headers "" ${standard})
  kestra_precompiled(kestra_library_headers "" ${standard})
  set_target_properties(kestra_library_headers PROPERTIES POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  if(KESTRA_BUILD_TESTS)
    if(NOT TARGET GTest::gtest)
      find_package(GTest REQUIRED)
    endif()
    kestra_precompiled(kestra_test_headers GTest::gtest ${standard} gtest/gtest.h)
    # Tests themselves are not optimised: what they test is.
    target_compile_options(kestra_test_headers PRIVATE -O0)
  endif()
  kestra_precompiled(kestra_line_headers "" ${standard} asio.hpp)
  target_compile_definitions(kestra_line_headers PRIVATE ASIO_STANDALONE ASIO_NO_DEPRECATED)
  foreach(target ${targets})
    kestra_headers_for(${target} headers)
    if(headers)
      target_precompile_headers(${target} REUSE_FROM ${headers})
      # GCC 12 takes for ours what it supposes inside the standard headers, as soon as they are compiled before.
      if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE
          "$<$<COMPILE_LANGUAGE:CXX>:-Wno-stringop-overread;-Wno-stringop-overflow>")
      endif()
      if(headers STREQUAL "kestra_test_headers")
        target_compile_options(${target} PRIVATE -O0)
      endif()
    endif()
  endforeach()
endfunction()

# Where they cannot be used, as on a machine that places programs at random, the build goes on without them.
target_compile_options(kestra_flags INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-error=invalid-pch>)
