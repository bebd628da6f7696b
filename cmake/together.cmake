# Whoever builds everything compiles a target's sources several at a time: most of a source's cost is what it
# includes. together.py says which may stand together. What a developer builds by hand is compiled one by one, and the
# library that is shipped always is.
option(KESTRA_TOGETHER "Compile the sources of a target several at a time" OFF)

# kestra_together(TARGET...): each source in one unit only, in whichever of the targets it is.
function(kestra_together)
  set(lists "")
  set(seen "")
  foreach(target ${ARGN})
    get_target_property(type ${target} TYPE)
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "^[^$]+\\.cpp$")
    if(NOT type MATCHES "EXECUTABLE|(STATIC|OBJECT|SHARED|MODULE)_LIBRARY" OR NOT folder MATCHES "^${PROJECT_SOURCE_DIR}")
      continue()
    endif()
    set(fresh "")
    foreach(source ${sources})
      cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder} NORMALIZE)
      cmake_path(IS_PREFIX folder ${source} NORMALIZE own)
      # A program takes from a static library what it lacks: what it may have of its own is to be had apart.
      if(EXISTS ${source} AND (own OR NOT type STREQUAL "STATIC_LIBRARY") AND NOT "${folder} ${source}" IN_LIST seen)
        list(APPEND fresh ${source})
        list(APPEND seen "${folder} ${source}")
      endif()
    endforeach()
    list(APPEND joined ${target})
    string(APPEND lists "${target};${fresh}\n")
  endforeach()
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  file(WRITE ${PROJECT_BINARY_DIR}/together.lists "${lists}")
  execute_process(COMMAND ${Python3_EXECUTABLE} -B ${PROJECT_SOURCE_DIR}/cmake/together.py
    INPUT_FILE ${PROJECT_BINARY_DIR}/together.lists OUTPUT_VARIABLE groups COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n]+" groups "${groups}")
  foreach(group ${groups})
    string(REGEX MATCH "^([^\t]+)\t([^\t]+)\t(.+)$" group "${group}")
    set_source_files_properties(${CMAKE_MATCH_3} TARGET_DIRECTORY ${CMAKE_MATCH_1}
      PROPERTIES UNITY_GROUP "${CMAKE_MATCH_2}")
  endforeach()
  set_target_properties(${joined} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  # Lines and functions are what a failed run is looked up by; all else makes a fifth of the compiler's work.
  if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    target_compile_options(kestra_flags INTERFACE -g1)
  endif()
endfunction()
