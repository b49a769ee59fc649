# cmake --install: programs into bin, what they read at run time into share/korv.
include(GNUInstallDirs)

foreach(program korv korv-count)
  if(TARGET ${program})
    korv_program(${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
install(FILES ${KORV_COMMON_WORDS} ${KORV_PROGRAM_TEXT} DESTINATION ${CMAKE_INSTALL_DATADIR}/korv)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_PACKAGE_NAME korv)
set(CPACK_PACKAGE_VENDOR "The Korv authors")
set(CPACK_PACKAGE_CONTACT "The Korv authors <korv@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
