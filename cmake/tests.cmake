# Compiled with the flags of each build. Debian installs its sources, for the machine that builds also when another runs.
find_path(LUMOZEPH_GOOGLETEST googlemock/CMakeLists.txt PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH
  DOC "The sources of GoogleTest")
if(NOT LUMOZEPH_GOOGLETEST)
  message(STATUS "No tests: the sources of GoogleTest are not there (on Debian, the package googletest; elsewhere, set "
    "LUMOZEPH_GOOGLETEST to their folder)")
  set(BUILD_TESTING OFF)
  return()
endif()

# Its warnings are not ours.
set(warning_as_error ${CMAKE_COMPILE_WARNING_AS_ERROR})
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
add_subdirectory(${LUMOZEPH_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
set(CMAKE_COMPILE_WARNING_AS_ERROR ${warning_as_error})

include(GoogleTest)

# Every test in a process of its own; all in one where a process starts slowly, because it is instrumented or emulated.
function(lumozeph_add_tests program prefix timeout)
  if(LUMOZEPH_INSTRUMENTED OR CMAKE_CROSSCOMPILING)
    add_test(NAME ${prefix}${program} COMMAND ${program} --gtest_brief=1)
    set_tests_properties(${prefix}${program} PROPERTIES TIMEOUT 600)
  else()
    gtest_discover_tests(${program} TEST_PREFIX "${prefix}" PROPERTIES TIMEOUT ${timeout} DISCOVERY_TIMEOUT 60)
  endif()
endfunction()
