# How other projects find the library that is installed: find_package(kestra) and pkg-config.
include(CMakePackageConfigHelpers)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/kestra)
install(EXPORT kestra_targets NAMESPACE kestra:: DESTINATION ${package})
file(WRITE ${PROJECT_BINARY_DIR}/kestraConfig.cmake
  "# kestra::kestra is the library; kestra::kestra_static the archive, where it is installed (it wants a C++ linker).\n"
  "include(\${CMAKE_CURRENT_LIST_DIR}/kestra_targets.cmake)\n")
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kestraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kestraConfig.cmake ${PROJECT_BINARY_DIR}/kestraConfigVersion.cmake
  DESTINATION ${package})
configure_file(${CMAKE_CURRENT_LIST_DIR}/kestra.pc.in ${PROJECT_BINARY_DIR}/kestra.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kestra.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
