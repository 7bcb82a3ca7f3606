# GoogleTest's warnings are not ours.
set(warning_as_error ${CMAKE_COMPILE_WARNING_AS_ERROR})
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
add_subdirectory(${LUMOZEPH_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
set(CMAKE_COMPILE_WARNING_AS_ERROR ${warning_as_error})

# What links GoogleTest is there to test what is compiled as it is installed: of its own program, only the time that it
# takes to compile counts. Its headers are compiled once for all.
target_compile_options(gtest PUBLIC -O0 -g1)
file(WRITE ${CMAKE_BINARY_DIR}/test_headers.cpp "")
add_library(lumozeph_test_headers OBJECT ${CMAKE_BINARY_DIR}/test_headers.cpp)
target_link_libraries(lumozeph_test_headers PRIVATE GTest::gmock lumozeph_warnings)
target_precompile_headers(lumozeph_test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>)

include(GoogleTest)

# The environment of tests in which the library leaves something allocated, as it does on purpose.
set(lumozeph_left_allocated
  LSAN_OPTIONS=print_suppressions=0:suppressions=${PROJECT_SOURCE_DIR}/tests/end_to_end/left_allocated)

# What a program of tests is compiled with.
function(lumozeph_compile_tests program)
  target_precompile_headers(${program} REUSE_FROM lumozeph_test_headers)
  lumozeph_compile_together(${program} 10)
endfunction()

# A program's tests in so many processes. Further arguments are their environment.
function(lumozeph_add_shards program prefix shards)
  lumozeph_compile_tests(${program})
  math(EXPR last "${shards} - 1")
  foreach(shard RANGE ${last})
    add_test(NAME ${prefix}${program}.${shard} COMMAND ${program} --gtest_brief=1)
    set_tests_properties(${prefix}${program}.${shard} PROPERTIES
      TIMEOUT 600 ENVIRONMENT "GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${shard};${ARGN}")
  endforeach()
endfunction()

# Every test in a process of its own; half of them in one where a process starts slowly, because it is instrumented or
# emulated. Further arguments are an environment for the sanitizers.
function(lumozeph_add_tests program prefix timeout)
  if(LUMOZEPH_INSTRUMENTED OR CMAKE_CROSSCOMPILING)
    lumozeph_add_shards(${program} "${prefix}" 2 ${ARGN})
  else()
    lumozeph_compile_tests(${program})
    gtest_discover_tests(${program} TEST_PREFIX "${prefix}" PROPERTIES TIMEOUT ${timeout} DISCOVERY_TIMEOUT 60)
  endif()
endfunction()

# Mistakes that the compiler must find, the snippets in must_not_compile/ of this folder: each beside the same without the
# mistake. The arguments are the compiler's. Neither sanitizers nor the machine change what it finds.
function(lumozeph_add_mistakes prefix)
  if(LUMOZEPH_INSTRUMENTED OR CMAKE_CROSSCOMPILING)
    return()
  endif()
  file(GLOB snippets CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/must_not_compile/*.cpp)
  foreach(snippet IN LISTS snippets)
    get_filename_component(name ${snippet} NAME_WE)
    add_test(NAME ${prefix}must_not_compile.${name}
      COMMAND ${PROJECT_SOURCE_DIR}/tests/build/must_not_compile/check ${snippet}
        ${CMAKE_CXX_COMPILER} ${CMAKE_CXX20_STANDARD_COMPILE_OPTION} ${ARGN}
      COMMAND_EXPAND_LISTS)
  endforeach()
endfunction()
