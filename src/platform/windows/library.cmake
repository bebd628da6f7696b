# Kestra.dll: one file, its exports, its version resource and its import library.
set(definition ${CMAKE_CURRENT_SOURCE_DIR}/frame/kestra.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${definition})
set_target_properties(kestra PROPERTIES
  LINKER_LANGUAGE CXX
  LINK_DEPENDS ${definition}
  PREFIX ""
  OUTPUT_NAME Kestra
  IMPORT_PREFIX ""
  IMPORT_SUFFIX .lib)

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  # No argument counts in the names of 64-bit functions.
  file(READ ${definition} rows)
  string(REGEX REPLACE "@[0-9]+" "" rows "${rows}")
  set(definition ${CMAKE_CURRENT_BINARY_DIR}/kestra-x64.def)
  file(CONFIGURE OUTPUT ${definition} CONTENT "${rows}" @ONLY)
  target_link_options(kestra PRIVATE LINKER:--high-entropy-va)
else()
  # Hosts look for the names without them, and the linker leaves them away only when told so.
  target_link_options(kestra PRIVATE LINKER:--kill-at)
endif()
target_link_options(kestra PRIVATE ${definition} LINKER:--gc-sections $<$<CONFIG:Release>:-s>)
target_link_libraries(kestra PRIVATE user32 gdi32 comctl32 advapi32 ole32 oleaut32 uuid ws2_32)

# The linker's own import library forgets the argument counts that 32-bit callers link against.
# Where it writes is in what it writes: it is told the name alone.
find_program(KESTRA_DLLTOOL NAMES ${triplet}-dlltool REQUIRED)
add_custom_command(TARGET kestra POST_BUILD
  COMMAND ${KESTRA_DLLTOOL} --kill-at --input-def ${definition} --dllname Kestra.dll
          --temp-prefix kestra_import --output-lib $<TARGET_LINKER_FILE_NAME:kestra>
  WORKING_DIRECTORY $<TARGET_LINKER_FILE_DIR:kestra>
  VERBATIM)

kestra_file_properties(kestra Kestra.dll "Kestra: controlador de impresoras fiscales Epson"
  "Biblioteca para puntos de venta: comprobantes, informes y configuración")
