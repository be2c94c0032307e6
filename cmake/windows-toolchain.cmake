# Cross-builds the Windows program on Debian: package g++-mingw-w64-x86-64-posix. (GoogleTest needs
# the threads of the -posix variant.)
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)

# One .exe with no DLL beside it, and a stack as large as that of Linux. CRT_noglob.o keeps the
# run-time from replacing an argument such as *.mif by the names it fits: no shell there does.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--stack,8388608 -l:CRT_noglob.o")

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# What runs the tests where there is no Windows. tools/test sets up its surroundings.
find_program(WINE wine64 PATHS /usr/lib/wine)
if(WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${WINE})
endif()
