# Builds for 64-bit Windows on Linux, with the compilers of Debian's g++-mingw-w64-x86-64-posix. Qt for
# Windows lies in the folder that KESTOVA_QT_WINDOWS names (scripts/windows/build-qt.sh makes one); it is
# a variable of CMake or of the environment.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

if(NOT KESTOVA_QT_WINDOWS)
  if(DEFINED ENV{KESTOVA_QT_WINDOWS})
    set(KESTOVA_QT_WINDOWS $ENV{KESTOVA_QT_WINDOWS})
  else()
    set(KESTOVA_QT_WINDOWS ${CMAKE_CURRENT_LIST_DIR}/../build/qt5-mingw)
  endif()
endif()
get_filename_component(KESTOVA_QT_WINDOWS ${KESTOVA_QT_WINDOWS} ABSOLUTE)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KESTOVA_QT_WINDOWS)

# The variants with POSIX threads: the others lack std::mutex.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

list(APPEND CMAKE_FIND_ROOT_PATH ${KESTOVA_QT_WINDOWS} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs that the build starts, and the tests, run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/windows/run.sh)
