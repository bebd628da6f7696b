# What will be built, as the last words of configuring. What the virtual printer has of others stands in lines of the
# global property KESTRA_FEATURES.

# kestra_option(WORDS OPTION): a part that is switched by an option.
function(kestra_option words option)
  if(${option})
    message(STATUS "  ${words}: yes")
  else()
    message(STATUS "  ${words}: no - ${option} is OFF")
  endif()
endfunction()

function(kestra_summary)
  message(STATUS "Kestra ${PROJECT_VERSION} for ${CMAKE_SYSTEM_NAME} ${CMAKE_SYSTEM_PROCESSOR}, "
                 "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}, ${CMAKE_BUILD_TYPE}")
  kestra_option("virtual printer" KESTRA_BUILD_SIMULATOR)
  get_property(features GLOBAL PROPERTY KESTRA_FEATURES)
  foreach(feature IN LISTS features)
    message(STATUS "  ${feature}")
  endforeach()
  kestra_option("door (kestra-puerta)" KESTRA_BUILD_DOOR)
  kestra_option("tests" KESTRA_BUILD_TESTS)
  kestra_option("benchmarks" KESTRA_BUILD_BENCH)
  foreach(instrument SANITIZE COVERAGE MCDC FUZZ)
    if(KESTRA_${instrument})
      message(STATUS "  built for measuring: KESTRA_${instrument}")
    endif()
  endforeach()
endfunction()
