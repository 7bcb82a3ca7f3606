# GoogleTest's warnings are not ours.
set(warning_as_error ${CMAKE_COMPILE_WARNING_AS_ERROR})
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
add_subdirectory(${LUMOZEPH_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
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
