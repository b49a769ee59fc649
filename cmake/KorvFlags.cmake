if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# The programs stand together, beside their data: see KorvData.cmake. Tests keep to their own folders.
set(KORV_PROGRAM_DIR ${PROJECT_BINARY_DIR}/bin)

# One interface target carries the flags of every target of ours.
add_library(korv_flags INTERFACE)
target_compile_features(korv_flags INTERFACE cxx_std_20)
target_include_directories(korv_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(korv_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # Clang counts changes of sign among conversions; the standard library's sizes make them everywhere.
  target_compile_options(korv_flags INTERFACE -Wno-sign-conversion)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlaps in std::string's own operator+ when it inlines it at -O3 (its bug 105651).
  target_compile_options(korv_flags INTERFACE -Wno-restrict)
endif()
if(KORV_HARDEN AND NOT WIN32)
  # What Debian builds its packages with. Only where the compiler optimises: fortified calls need it.
  include(CheckCXXCompilerFlag)
  set(hardening -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wformat -Werror=format-security)
  foreach(flag -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "KORV_HAS${flag}" has)
    check_cxx_compiler_flag(${flag} ${has})
    if(${has})
      list(APPEND hardening ${flag})
    endif()
  endforeach()
  target_compile_options(korv_flags INTERFACE "$<$<CONFIG:Release,RelWithDebInfo>:${hardening}>")
  target_link_options(korv_flags INTERFACE $<$<CONFIG:Release,RelWithDebInfo>:LINKER:-z,relro,-z,now>)
endif()
if(KORV_SANITIZE)
  target_compile_options(korv_flags INTERFACE -fsanitize=${KORV_SANITIZE} -fno-omit-frame-pointer
                                              -fno-sanitize-recover=all)
  target_link_options(korv_flags INTERFACE -fsanitize=${KORV_SANITIZE})
  target_compile_definitions(korv_flags INTERFACE _GLIBCXX_ASSERTIONS)
endif()
if(KORV_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "KORV_FUZZ needs Clang; without it the fuzz targets are replayed as tests.")
  endif()
  target_compile_options(korv_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# A room is a static library named korv_<room> with its sources listed by hand.
function(korv_room name)
  add_library(korv_${name} STATIC ${ARGN})
  target_link_libraries(korv_${name} PUBLIC korv_flags)
  set_target_properties(korv_${name} PROPERTIES LINKER_LANGUAGE CXX)
endfunction()

# A test program: korv_test(<room> <name> SOURCES <files> LIBRARIES <targets>); registered as <room>.<name>.
function(korv_test room name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(test_${room}_${name} ${T_SOURCES})
  target_link_libraries(test_${room}_${name} PRIVATE korv_flags ${T_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_compile_definitions(test_${room}_${name}
                             PRIVATE KORV_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  if(KORV_SANITIZE)
    # Checks written by macros take the compiler long to optimise and are quick enough as they are. What they
    # test is compiled as the build says.
    target_compile_options(test_${room}_${name} PRIVATE -O0)
  endif()
  add_test(NAME ${room}.${name} COMMAND test_${room}_${name})
  # Far above what any test takes: only a test that hangs is ended by it.
  set_tests_properties(${room}.${name} PROPERTIES TIMEOUT 900 LABELS ${room})
endfunction()
