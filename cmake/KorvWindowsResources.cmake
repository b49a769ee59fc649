# Gives a program the resources that Windows looks for: korv_windows_resources(<target> <description>).
enable_language(RC)

function(korv_windows_resources target description)
  set(KORV_PROGRAM_NAME ${target})
  set(KORV_PROGRAM_DESCRIPTION ${description})
  set(KORV_MANIFEST ${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest.in ${KORV_MANIFEST} @ONLY)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${target}.rc @ONLY)
  set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc PROPERTY OBJECT_DEPENDS
               "${KORV_MANIFEST};${PROJECT_SOURCE_DIR}/packaging/icons/korv.ico")
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()
