# i686 Windows by clang. No emulator, as for g++.
set(MINGW_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-windows-clang.cmake)
