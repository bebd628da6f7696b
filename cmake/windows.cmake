# What both Windows toolchains share. A file that includes this has set `triplet`, and `processor_flags`
# where the processor wants some; a program that needs more than the library may have set `thread_model`
# and `windows_version`.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${triplet}-gcc${thread_model})
set(CMAKE_CXX_COMPILER ${triplet}-g++${thread_model})
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Tills are old: nothing newer than Windows XP.
if(NOT windows_version)
  set(windows_version 0x0501)
endif()
set(CMAKE_C_FLAGS_INIT "-D_WIN32_WINNT=${windows_version} -DWINVER=${windows_version} ${processor_flags}")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")

# One file: the compiler's own libraries go inside. And no date in it: the same sources, the same bytes.
set(link_flags "-static -Wl,--no-insert-timestamp -Wl,--dynamicbase -Wl,--nxcompat")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_flags}")

set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
