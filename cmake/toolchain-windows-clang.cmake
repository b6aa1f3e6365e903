# What both targets of the second compiler share: clang and lld on the headers and the C++ library of
# mingw-w64. Included by the two toolchain files; never used by itself.
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-windows.cmake)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET ${MINGW_TRIPLET})
set(CMAKE_CXX_COMPILER_TARGET ${MINGW_TRIPLET})

# clang does not know the distribution's names of these folders.
file(GLOB library_folders /usr/lib/gcc/${MINGW_TRIPLET}/*-posix)
list(POP_BACK library_folders library_folder)
if(NOT library_folder)
  message(FATAL_ERROR "no C++ library of mingw-w64 for ${MINGW_TRIPLET}")
endif()
# Debug information in the form that a PDB holds.
set(CMAKE_C_FLAGS_INIT -gcodeview)
# As the C++ library was built, whose thread-local variables std::future uses; the definitions are built
# into g++.
string(JOIN " " CMAKE_CXX_FLAGS_INIT
  -gcodeview -femulated-tls
  -D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0
  -stdlib++-isystem ${library_folder}/include/c++
  -stdlib++-isystem ${library_folder}/include/c++/${MINGW_TRIPLET})
# -B finds g++'s crtbegin.o, without which a 32-bit program knows no handler of its exceptions. g++
# names the thread library by itself. The flags of the compiler are passed to the linker, too.
foreach(kind EXE SHARED)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT
    "-fuse-ld=lld -B${library_folder} -L${library_folder} -lpthread -Wno-unused-command-line-argument")
endforeach()
