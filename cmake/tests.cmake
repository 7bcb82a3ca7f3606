# GoogleTest's warnings are not ours.
set(warning_as_error ${CMAKE_COMPILE_WARNING_AS_ERROR})
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
add_subdirectory(${LUMOZEPH_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
set(CMAKE_COMPILE_WARNING_AS_ERROR ${warning_as_error})

include(GoogleTest)

# Every test in a process of its own; half of them in one where a process starts slowly, because it is instrumented or
# emulated.
function(lumozeph_add_tests program prefix timeout)
  if(LUMOZEPH_INSTRUMENTED OR CMAKE_CROSSCOMPILING)
    foreach(half 0 1)
      add_test(NAME ${prefix}${program}.${half} COMMAND ${program} --gtest_brief=1)
      set_tests_properties(${prefix}${program}.${half} PROPERTIES
        TIMEOUT 600 ENVIRONMENT "GTEST_TOTAL_SHARDS=2;GTEST_SHARD_INDEX=${half}")
    endforeach()
  else()
    gtest_discover_tests(${program} TEST_PREFIX "${prefix}" PROPERTIES TIMEOUT ${timeout} DISCOVERY_TIMEOUT 60)
  endif()
endfunction()

# Mistakes that the compiler must find, the snippets in must_not_compile/ of this folder: each beside the same without the
# mistake. The arguments are the compiler's.
function(lumozeph_add_mistakes prefix)
  file(GLOB snippets CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/must_not_compile/*.cpp)
  foreach(snippet IN LISTS snippets)
    get_filename_component(name ${snippet} NAME_WE)
    add_test(NAME ${prefix}must_not_compile.${name}
      COMMAND ${PROJECT_SOURCE_DIR}/tests/build/must_not_compile/check ${snippet}
        ${CMAKE_CXX_COMPILER} ${CMAKE_CXX20_STANDARD_COMPILE_OPTION} ${ARGN}
      COMMAND_EXPAND_LISTS)
  endforeach()
endfunction()
