# i686 Windows by mingw-w64. No emulator: a 64-bit-only Wine answers an i686 program with
# silence and exit code 0, which would pass for success.
set(MINGW_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-windows.cmake)
