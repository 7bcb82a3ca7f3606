# What is installed of the library, in the components runtime and development.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
if(NOT PROJECT_SOURCE_DIR STREQUAL CMAKE_SOURCE_DIR)
  set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/lumozeph)
endif()

# Whoever passes on one component only passes on the licence, too.
function(lumozeph_install_licence component)
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT ${component})
endfunction()

install(TARGETS lumozeph lumozeph_static EXPORT lumozeph
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/lumozeph.h ${PROJECT_SOURCE_DIR}/include/lumozeph_inline.h
  ${PROJECT_SOURCE_DIR}/bindings/cxx/lumozeph.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
lumozeph_install_licence(runtime)
lumozeph_install_licence(development)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/lumozeph)
install(EXPORT lumozeph NAMESPACE lumozeph:: FILE lumozeph-targets.cmake DESTINATION ${package} COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/lumozeph-config.cmake.in
  ${PROJECT_BINARY_DIR}/lumozeph-config.cmake INSTALL_DESTINATION ${package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/lumozeph-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/lumozeph-config.cmake ${PROJECT_BINARY_DIR}/lumozeph-config-version.cmake
  DESTINATION ${package} COMPONENT development)

# Seen from where the file lies, so that the tree can be moved, unless the folder of libraries is an absolute one.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(prefix ${CMAKE_INSTALL_PREFIX})
else()
  file(RELATIVE_PATH prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "(.*)/$" "\${pcfiledir}/\\1" prefix ${prefix})
endif()
foreach(folder LIBDIR INCLUDEDIR)
  set(${folder} "${CMAKE_INSTALL_${folder}}")
  if(NOT IS_ABSOLUTE "${${folder}}")
    set(${folder} "\${prefix}/${${folder}}")
  endif()
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/cmake/lumozeph.pc.in ${PROJECT_BINARY_DIR}/lumozeph.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/lumozeph.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
