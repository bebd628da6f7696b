# What both Windows toolchains share. A file that includes this has set `triplet`, and `processor_flags`
# where the processor wants some.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Tills are old: nothing newer than Windows XP.
set(CMAKE_C_FLAGS_INIT "-D_WIN32_WINNT=0x0501 -DWINVER=0x0501 ${processor_flags}")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")

# One file: the compiler's own libraries go inside. And no date in it: the same sources, the same bytes.
set(link_flags "-static -Wl,--no-insert-timestamp -Wl,--dynamicbase -Wl,--nxcompat")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_flags}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_flags}")

set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
