# The virtual printer's program for Windows has threads and sockets: another flavour of the compiler
# and a younger Windows than the library's.
set(thread_model -posix)
set(windows_version 0x0601)
include(${CMAKE_CURRENT_LIST_DIR}/windows-x64.cmake)
