# What is installed to be read: the documents and the examples, one beside the other as in the source tree.
install(FILES README.md CHANGELOG.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation
  FILES_MATCHING PATTERN *.md PATTERN *.svg PATTERN *.c PATTERN *.cpp)
foreach(folder api emulator)
  install(FILES ${folder}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/${folder} COMPONENT documentation)
endforeach()
# For authors of bindings.
install(FILES api/lumozeph.json api/lumozeph.schema.json
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lumozeph COMPONENT documentation)
lumozeph_install_licence(documentation)
