# i686 Windows by clang, to compile, never to run or ship: clang 14 passes an argument of an empty class
# as nothing, g++ as four bytes. Members pop their arguments on this target, so that a call with such an
# argument between objects of both compilers (inside std::string's constructors, and the C++ library is
# built by g++) moves the stack pointer.
set(MINGW_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-windows-clang.cmake)
