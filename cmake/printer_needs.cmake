# What the virtual printer cannot do without is looked for first, so that a missing package is named by its name and
# not by a compiler. A cross build takes the headers from this machine: they suit any system.
set(missing "")
set(headers "")
foreach(row asio.hpp=libasio-dev boost/beast.hpp=libboost-dev nlohmann/json.hpp=nlohmann-json3-dev
    stb/stb_truetype.h=libstb-dev)
  string(REGEX MATCH "^(.+)=(.+)$" row "${row}")
  set(package ${CMAKE_MATCH_2})
  string(MAKE_C_IDENTIFIER "KESTRA_${CMAKE_MATCH_1}" found)
  find_path(${found} ${CMAKE_MATCH_1} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(${found})
  if(NOT ${found})
    string(APPEND missing " ${package}")
  elseif(NOT WIN32)
    list(APPEND headers ${${found}})
  endif()
endforeach()
if(NOT WIN32)
  find_package(SQLite3 QUIET)
  if(NOT SQLite3_FOUND)
    string(APPEND missing " libsqlite3-dev")
  endif()
endif()
if(missing)
  message(FATAL_ERROR "The virtual printer cannot be built here: install${missing}, "
                      "or configure with -DKESTRA_BUILD_SIMULATOR=OFF for the library alone.")
endif()

# kestra_headers_of_others: of theirs' headers those that are nobody's library. kestra_sqlite: the fiscal memory's.
add_library(kestra_headers_of_others INTERFACE)
if(WIN32)
  # Not the whole of this machine's folder, whose other headers are another system's.
  set(headers ${PROJECT_BINARY_DIR}/headers)
  file(MAKE_DIRECTORY ${headers})
  foreach(part asio asio.hpp boost nlohmann stb)
    file(CREATE_LINK /usr/include/${part} ${headers}/${part} SYMBOLIC)
  endforeach()

  set(KESTRA_SQLITE ${PROJECT_SOURCE_DIR}/build/sqlite CACHE PATH "SQLite in one source, for cross builds")
  if(NOT EXISTS ${KESTRA_SQLITE}/sqlite3.c)
    message(FATAL_ERROR "The virtual printer cannot be built here: SQLite's source is not in ${KESTRA_SQLITE}. "
                        "scripts/sqlite fetches it.")
  endif()
  file(STRINGS ${KESTRA_SQLITE}/sqlite3.h SQLite3_VERSION REGEX "^#define SQLITE_VERSION  ")
  string(REGEX REPLACE ".*\"(.*)\".*" "\\1" SQLite3_VERSION "${SQLite3_VERSION}")
  add_library(kestra_sqlite STATIC ${KESTRA_SQLITE}/sqlite3.c)
  target_include_directories(kestra_sqlite SYSTEM INTERFACE ${KESTRA_SQLITE})
  target_compile_definitions(kestra_sqlite PRIVATE SQLITE_OMIT_LOAD_EXTENSION SQLITE_OMIT_DEPRECATED
    SQLITE_OMIT_JSON SQLITE_DQS=0)
  # Nobody waits for it but the disk: it need not be quick, and compiles in a third of the time.
  target_compile_options(kestra_sqlite PRIVATE -O0)
else()
  add_library(kestra_sqlite INTERFACE)
  target_include_directories(kestra_sqlite SYSTEM INTERFACE ${SQLite3_INCLUDE_DIRS})
  target_link_libraries(kestra_sqlite INTERFACE SQLite::SQLite3)
endif()
target_include_directories(kestra_headers_of_others SYSTEM INTERFACE ${headers})
set_property(GLOBAL APPEND PROPERTY KESTRA_FEATURES "the printer's fiscal memory: SQLite ${SQLite3_VERSION}")
