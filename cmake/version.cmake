# What a Windows file says of itself in its properties: name, number, what it is for.

# kestra_file_properties(TARGET FILE DESCRIPTION COMMENTS); elsewhere there is nothing to do.
function(kestra_file_properties target file description comments)
  if(NOT WIN32)
    return()
  endif()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    set(type VFT_APP)
  else()
    set(type VFT_DLL)
  endif()
  cmake_path(GET file STEM name)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()
