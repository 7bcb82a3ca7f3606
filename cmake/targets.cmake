# Kinds of targets.

option(LUMOZEPH_UNITY_BUILD "Compile the files of the tool, of the supervisor and of tests many at a time" OFF)

# The files of the target are compiled so many at a time, where LUMOZEPH_UNITY_BUILD says so, and then no name stands for two
# things in them.
function(lumozeph_compile_together target files)
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ${LUMOZEPH_UNITY_BUILD}
    UNITY_BUILD_BATCH_SIZE ${files}
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
endfunction()

# The library can be preloaded into any program, which may have another C++ run-time library, or none.
function(lumozeph_make_preloadable library)
  target_link_options(${library} PRIVATE -Wl,-z,relro -Wl,-z,now -Wl,--as-needed)
  if(NOT LUMOZEPH_INSTRUMENTED)
    target_link_options(${library} PRIVATE -static-libstdc++ -static-libgcc -Wl,-z,defs)
  endif()
endfunction()
