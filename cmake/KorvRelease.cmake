# The release that is built. Its version stands in project(), its day in the heading of CHANGELOG.md; what tells
# of releases elsewhere is made of these.
#   KORV_RELEASE_DATE   the day of this version
#   KORV_RELEASES       every release as AppStream has it, the newest first
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set(heading "^## ([0-9.]+) \\(([0-9-]+)\\)$")
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md headings REGEX "${heading}")
set(KORV_RELEASE_DATE "")
set(KORV_RELEASES "")
foreach(line IN LISTS headings)
  string(REGEX MATCH "${heading}" matched "${line}")
  if(KORV_RELEASE_DATE STREQUAL "")
    if(NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
      message(FATAL_ERROR "The newest release in CHANGELOG.md is ${CMAKE_MATCH_1}, not ${PROJECT_VERSION}.")
    endif()
    set(KORV_RELEASE_DATE ${CMAKE_MATCH_2})
  else()
    string(APPEND KORV_RELEASES "\n    ")
  endif()
  string(APPEND KORV_RELEASES "<release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>")
endforeach()
if(KORV_RELEASE_DATE STREQUAL "")
  message(FATAL_ERROR "CHANGELOG.md has no release.")
endif()
