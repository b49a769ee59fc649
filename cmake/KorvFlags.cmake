# One interface target carries the flags of every target of ours.
add_library(korv_flags INTERFACE)
target_compile_features(korv_flags INTERFACE cxx_std_20)
target_include_directories(korv_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(korv_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
if(KORV_SANITIZE)
  target_compile_options(korv_flags INTERFACE -fsanitize=${KORV_SANITIZE} -fno-omit-frame-pointer
                                              -fno-sanitize-recover=all)
  target_link_options(korv_flags INTERFACE -fsanitize=${KORV_SANITIZE})
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

# A room is a static library named korv_<room> with its sources listed by hand.
function(korv_room name)
  add_library(korv_${name} STATIC ${ARGN})
  target_link_libraries(korv_${name} PUBLIC korv_flags)
  set_target_properties(korv_${name} PROPERTIES LINKER_LANGUAGE CXX)
endfunction()

# A test program: korv_test(<room> <name> <libraries> SOURCES <files>); registered under <room>.<name>.
function(korv_test room name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(test_${room}_${name} ${T_SOURCES})
  target_link_libraries(test_${room}_${name} PRIVATE korv_flags ${T_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_compile_definitions(test_${room}_${name}
                             PRIVATE KORV_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  add_test(NAME ${room}.${name} COMMAND test_${room}_${name})
endfunction()
