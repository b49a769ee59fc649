# cmake --install: programs into bin, what they read at run time into share/korv. What desktops read: see packaging/.
include(GNUInstallDirs)

foreach(program korv korv-count)
  if(TARGET ${program})
    korv_program(${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
install(FILES ${KORV_COMMON_WORDS} ${KORV_PROGRAM_TEXT} ${KORV_SAMPLE} DESTINATION ${CMAKE_INSTALL_DATADIR}/korv)
if(translations)
  install(DIRECTORY ${KORV_PROGRAM_DIR}/locale DESTINATION ${CMAKE_INSTALL_DATADIR}/korv)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

# cpack: a Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korv)
set(CPACK_PACKAGE_VENDOR "The Korv authors")
set(CPACK_PACKAGE_CONTACT "The Korv authors <korv@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "count the phrases of natural-language text")
# CPack wraps nothing: lines as they are to stand below the summary.
set(CPACK_PACKAGE_DESCRIPTION
"Korv finds every run of 2 to 25 words that occurs more than once in a text,
in a folder of texts, or on the clipboard, and lists these phrases by
frequency or alphabetically, in thirteen formats. It reads plain text, HTML,
XML, PHP and Word documents (.docx), in any language that separates words by
blanks, and ignores common words of six languages on request.")
if(TARGET korv)
  string(APPEND CPACK_PACKAGE_DESCRIPTION "

The package holds korv, with windows, and korv-count, for terminals and
scripts.")
endif()
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
if(TARGET korv)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS hicolor-icon-theme)
  set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland, qt6-translations-l10n")
endif()
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/KorvDebianLayout.cmake)
include(CPack)
