set(CMAKE_SYSTEM_PROCESSOR x86)
set(triplet i686-w64-mingw32)
# The old floating-point unit keeps more digits than a double has; two totals that are equal must not
# differ by where they were kept.
set(processor_flags -ffloat-store)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
