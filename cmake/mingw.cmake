# The compiler for Windows, as Debian's package g++-mingw-w64-x86-64-posix has it: the POSIX threads of that package are
# what std::thread and std::mutex stand on. Used by the preset `windows` and by scripts/windows_toolkit.sh.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(mingw x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw}-windres)

# Libraries and headers of this system are no use over there; its programs are.
set(CMAKE_FIND_ROOT_PATH /usr/${mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The run-time libraries of the compiler go into the program, so that it needs none beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
