# What the virtual printer cannot do without is looked for first, so that a missing package is named by its name and
# not by a compiler. A cross build takes both from this machine: they are headers.
find_path(KESTRA_ASIO asio.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
find_path(KESTRA_JSON nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(KESTRA_ASIO KESTRA_JSON)
set(missing "")
if(NOT KESTRA_ASIO)
  string(APPEND missing " libasio-dev")
endif()
if(NOT KESTRA_JSON)
  string(APPEND missing " nlohmann-json3-dev")
endif()
if(missing)
  message(FATAL_ERROR "The virtual printer cannot be built here: install${missing}, "
                      "or configure with -DKESTRA_BUILD_SIMULATOR=OFF for the library alone.")
endif()
