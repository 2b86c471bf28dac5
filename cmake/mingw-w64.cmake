# Cross-builds for 64-bit Windows with Debian's mingw-w64 (posix threads); programs run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
# In an installed kit this file lies in share/sidecar/, and what the kit has is for Windows too.
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH kit)
cmake_path(GET kit PARENT_PATH kit)
if(EXISTS ${kit}/lib/cmake/Sidecar)
  list(APPEND CMAKE_FIND_ROOT_PATH ${kit})
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The static runtime: a module must not ask a user's machine for compiler libraries.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

# One Wine prefix per build folder, quiet, without the optional .NET and HTML engines.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine-run)
