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
add_custom_target(korv_data ALL DEPENDS ${copies})

# Puts a program of ours beside its data: korv_program(<target>).
function(korv_program target)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${KORV_PROGRAM_DIR})
  add_dependencies(${target} korv_data)
endfunction()
