# libkestra.so: the exported names and nothing else.
set(version_script ${CMAKE_CURRENT_SOURCE_DIR}/frame/kestra.map)
target_link_options(kestra PRIVATE LINKER:--version-script=${version_script})
# Bound when loaded: nothing in a host can turn the library's calls elsewhere later.
target_link_options(kestra PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
if(NOT KESTRA_SANITIZE)
  target_link_options(kestra PRIVATE LINKER:--no-undefined)
endif()
set_target_properties(kestra PROPERTIES
  LINKER_LANGUAGE CXX
  VERSION ${PROJECT_VERSION}
  SOVERSION 0
  LINK_DEPENDS ${version_script})
