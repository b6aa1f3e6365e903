# Included by a directory of programs that are not shipped: beside g++ for 64-bit Windows, clang
# compiles them in half the time, and lld links them in a second where GNU ld takes up to a minute
# and a half. What they test is compiled as it ships. For 32 bits objects of both compilers do not fit
# together (toolchain-windows-clang-x86.cmake says why), and lld misses a function of g++'s C++ library.
if(MINGW AND CMAKE_CROSSCOMPILING AND CMAKE_CXX_COMPILER_ID STREQUAL GNU
    AND CMAKE_SIZEOF_VOID_P EQUAL 8)
  find_program(CLANGXX clang++ REQUIRED)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
    OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  cmake_path(GET libgcc PARENT_PATH gcc_folder)
  # The definitions are built into g++: how the C++ library was built.
  string(JOIN " " CMAKE_CXX_COMPILE_OBJECT
    "${CLANGXX} --target=${MINGW_TRIPLET} -stdlib++-isystem ${gcc_folder}/include/c++"
    "-stdlib++-isystem ${gcc_folder}/include/c++/${MINGW_TRIPLET}"
    "-D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0"
    "-Wno-unknown-warning-option <DEFINES> <INCLUDES> <FLAGS> -o <OBJECT> -c <SOURCE>")
  set(CMAKE_PCH_EXTENSION .pch)
  set(CMAKE_CXX_COMPILE_OPTIONS_CREATE_PCH
    -Xclang -emit-pch -Xclang -include -Xclang <PCH_HEADER> -x c++-header)
  set(CMAKE_CXX_COMPILE_OPTIONS_USE_PCH
    -Xclang -include-pch -Xclang <PCH_FILE> -Xclang -include -Xclang <PCH_HEADER>)
  string(JOIN " " CMAKE_CXX_LINK_EXECUTABLE
    "${CLANGXX} --target=${MINGW_TRIPLET} -fuse-ld=lld -B${gcc_folder} -L${gcc_folder}"
    "<LINK_FLAGS> <OBJECTS> -o <TARGET> <LINK_LIBRARIES> -lssp -lpthread")
  string(REPLACE " -o <TARGET>" " -shared -Wl,--out-implib,<TARGET_IMPLIB> -o <TARGET>"
    CMAKE_CXX_CREATE_SHARED_LIBRARY "${CMAKE_CXX_LINK_EXECUTABLE}")
endif()
