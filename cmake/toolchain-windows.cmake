# What both Windows targets share. Included by the two toolchain files, which set MINGW_TRIPLET
# first.
set(CMAKE_SYSTEM_NAME Windows)

set(CMAKE_C_COMPILER ${MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_TRIPLET}-windres)

# Named here because CMake derives no tool prefix from a compiler that ends in "-posix".
foreach(tool AR RANLIB NM OBJCOPY OBJDUMP STRIP DLLTOOL)
  string(TOLOWER ${tool} tool_name)
  set(CMAKE_${tool} /usr/bin/${MINGW_TRIPLET}-${tool_name} CACHE FILEPATH "")
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
