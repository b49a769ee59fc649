# Cross-building for 64-bit Windows with Debian's mingw-w64. Libraries come from the prefix that
# scripts/windows-libraries fills; everything is linked into the programs, which then need Windows alone.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 $ENV{KORV_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config knows this machine's own libraries unless it is told otherwise.
set(ENV{PKG_CONFIG_LIBDIR} $ENV{KORV_WINDOWS_PREFIX}/lib/pkgconfig)
set(PKG_CONFIG_ARGN --static)
# Headers that declare functions of a DLL unless they are told otherwise.
add_compile_definitions(PCRE2_STATIC UTF8PROC_STATIC ZIP_STATIC)
# Windows 10, and its wide calls everywhere.
add_compile_definitions(UNICODE _UNICODE WINVER=0x0A00 _WIN32_WINNT=0x0A00)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -s")

# Tools that run while building, and their targets, are this machine's own.
set(QT_HOST_PATH /usr CACHE PATH "")
