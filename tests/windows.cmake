# The Windows library at work: under Wine, with the virtual printer of a native build at the other end of the
# line. Whoever runs these tests has a Wine up (scripts/wine.sh); scripts/test does all of it.
set(KESTRA_PRINTER ${PROJECT_SOURCE_DIR}/build/dev/bin/impresora-virtual CACHE FILEPATH
    "The virtual printer, built natively")
set(KESTRA_WINDOWS_PRINTER
    ${PROJECT_SOURCE_DIR}/build/windows-x64-impresora/bin/impresora-virtual.exe CACHE FILEPATH
    "The virtual printer as a Windows program")

# A host that has all of the system's headers first.
add_library(host_with_windows OBJECT host/windows/with_windows.c)
target_link_libraries(host_with_windows PRIVATE kestra kestra_flags)

add_executable(clock host/windows/clock.c)
target_link_libraries(clock PRIVATE kestra kestra_flags kestra_talk)
target_link_options(clock PRIVATE -static)

set(environment
  "KESTRA_LIBRARY=$<TARGET_FILE:kestra>"
  "KESTRA_PRINTER=${KESTRA_PRINTER}"
  "KESTRA_TICKET=$<TARGET_FILE:ticket>"
  "KESTRA_DAY=$<TARGET_FILE:jornada>"
  "KESTRA_TILL=$<TARGET_FILE:caja>"
  "KESTRA_TOOL=$<$<TARGET_EXISTS:kestra_tool>:$<TARGET_FILE:kestra_tool>>"
  "KESTRA_CLOCK=$<TARGET_FILE:clock>"
  "KESTRA_SETTINGS=${PROJECT_SOURCE_DIR}/tools/Fiscal.ini"
  "KESTRA_BUILD=${PROJECT_BINARY_DIR}"
  "KESTRA_GUIDE=${PROJECT_SOURCE_DIR}/docs/manual/guia.md"
  "KESTRA_BIN=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
  "KESTRA_WINDOWS_PRINTER=${KESTRA_WINDOWS_PRINTER}"
  "KESTRA_WINE=${KESTRA_WINE}"
  "KESTRA_STARTER=${KESTRA_STARTER}"
  "PYTHONPATH=${PROJECT_SOURCE_DIR}/tests/programs:${PROJECT_SOURCE_DIR}/tests/end_to_end/shared:${PROJECT_SOURCE_DIR}/tests/end_to_end/posix:${CMAKE_CURRENT_SOURCE_DIR}/end_to_end/windows"
  "PYTHONDONTWRITEBYTECODE=1")

# kestra_story(NAME FOLDER COMMAND...): a story in Python, told in its folder.
function(kestra_story name folder)
  add_test(NAME ${name} COMMAND ${Python3_EXECUTABLE} ${ARGN}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 1500)
endfunction()

foreach(story paper_test faults_test accidents_test network_test windows_printer_test)
  kestra_story(end_to_end.${story} end_to_end/windows -m unittest -v ${story})
endforeach()

# The tool for the shop. Half of the time it waits for the printer's clock: one width is enough.
if(TARGET kestra_tool AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  kestra_story(tools.windows_tool_test tool/windows -m unittest -v windows_tool_test)
endif()

# The classes: these look at the whole registry, so that nothing else may run beside them.
add_subdirectory(contract/windows/components)
kestra_story(components contract/windows/components components_test.py ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
set_tests_properties(components PROPERTIES RUN_SERIAL ON)

# It registers a class while it is told.
kestra_story(end_to_end.guide_test end_to_end/windows -m unittest -v windows_guide_test)
set_tests_properties(end_to_end.guide_test PROPERTIES RUN_SERIAL ON)

# The windows that the operator sees: whoever shows some has the one display, its keyboard and its mouse alone.
add_subdirectory(contract/windows/dialogs)
kestra_story(dialogs contract/windows/dialogs dialogs_test.py ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
kestra_story(dialogs.library contract/windows/dialogs -m unittest -v dialogs_of_the_library_test)
kestra_story(dialogs.code_pages contract/windows/dialogs -m unittest -v code_pages_test)
set_tests_properties(dialogs dialogs.library PROPERTIES RESOURCE_LOCK display)
# A program of another locale makes Wine write that locale's forms into the registry, for the programs of all.
set_tests_properties(dialogs.code_pages PROPERTIES RUN_SERIAL ON)

# What the declares of languages describe, called.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  add_subdirectory(api/declares)
endif()

# What the file itself shows: names, imports, size.
kestra_story(library.imports host/windows imports_test.py $<TARGET_FILE:kestra>)

# What hosts rely on, whatever their habits.
add_subdirectory(hostile/windows)

# What others may have planted about it.
add_subdirectory(security/windows)
