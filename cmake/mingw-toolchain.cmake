# Cross-building for Windows with Debian's MinGW-w64. For 32 bits: -DKAZ_MINGW_TARGET=i686-w64-mingw32.
set(KAZ_MINGW_TARGET x86_64-w64-mingw32 CACHE STRING "Prefix of the cross tools")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KAZ_MINGW_TARGET)

set(CMAKE_SYSTEM_NAME Windows)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${KAZ_MINGW_TARGET})

# The "posix" flavour brings std::thread and std::mutex.
set(CMAKE_C_COMPILER ${KAZ_MINGW_TARGET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KAZ_MINGW_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${KAZ_MINGW_TARGET}-windres)
set(CMAKE_AR ${KAZ_MINGW_TARGET}-gcc-ar-posix)
set(CMAKE_RANLIB ${KAZ_MINGW_TARGET}-gcc-ranlib-posix)

set(CMAKE_FIND_ROOT_PATH /usr/${KAZ_MINGW_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/lib/run-wine)

# libstdc++, libgcc and winpthread go inside, so that a program is one file that runs from anywhere.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
