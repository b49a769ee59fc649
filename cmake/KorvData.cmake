# What the programs read at run time. They look for it beside themselves first, so a build is complete in
# its bin folder, without installation.
file(GLOB KORV_COMMON_WORDS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/wordlists/cwds_*.txt)
file(GLOB KORV_PROGRAM_TEXT CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/app/texts/korv.dat)
# A text to try the programs with.
set(KORV_SAMPLE ${PROJECT_SOURCE_DIR}/tests/data/sample.txt)

set(copies)
foreach(file ${KORV_COMMON_WORDS} ${KORV_PROGRAM_TEXT} ${KORV_SAMPLE})
  get_filename_component(name ${file} NAME)
  add_custom_command(OUTPUT ${KORV_PROGRAM_DIR}/${name}
                     COMMAND ${CMAKE_COMMAND} -E copy ${file} ${KORV_PROGRAM_DIR}/${name}
                     DEPENDS ${file} VERBATIM)
  list(APPEND copies ${KORV_PROGRAM_DIR}/${name})
endforeach()

# Translations: locale/<language>/LC_MESSAGES/korv.mo of each app/texts/<language>.po.
find_program(KORV_MSGFMT msgfmt)
if(Intl_FOUND AND KORV_MSGFMT)
  file(GLOB translations CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/app/texts/*.po)
  foreach(translation ${translations})
    get_filename_component(language ${translation} NAME_WE)
    set(folder ${KORV_PROGRAM_DIR}/locale/${language}/LC_MESSAGES)
    add_custom_command(OUTPUT ${folder}/korv.mo
                       COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
                       COMMAND ${KORV_MSGFMT} --check-format --output-file=${folder}/korv.mo ${translation}
                       DEPENDS ${translation} VERBATIM)
    list(APPEND copies ${folder}/korv.mo)
  endforeach()
endif()
add_custom_target(korv_data ALL DEPENDS ${copies})

# Puts a program of ours beside its data: korv_program(<target>).
function(korv_program target)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${KORV_PROGRAM_DIR})
  add_dependencies(${target} korv_data)
endfunction()
