# Run by cpack on the staged tree: what Debian wants to be otherwise than cmake --install leaves it.
file(GLOB_RECURSE licences ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/*/LICENSE)
foreach(licence ${licences})
  get_filename_component(folder ${licence} DIRECTORY)
  file(RENAME ${licence} ${folder}/copyright)
endforeach()
file(GLOB pages ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man*/*.[0-9])
foreach(page ${pages})
  # Without names and times in it, the same page always gives the same bytes.
  execute_process(COMMAND gzip -9n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
# Folders for everybody, whatever the umask of who packs.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY}/usr
     DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                           WORLD_READ WORLD_EXECUTE)
