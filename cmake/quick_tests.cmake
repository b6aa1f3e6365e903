# Included by a directory of programs that are not shipped. What they test is compiled as it ships.
#  - lld links them in a second, where GNU ld takes up to a minute and a half.
#  - clang compiles those for 64-bit Windows in half the time. For 32 bits objects of both compilers do
#    not fit together (toolchain-windows-clang-x86.cmake says why).
if(MINGW AND CMAKE_CROSSCOMPILING AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  find_program(CLANGXX clang++ REQUIRED)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
    OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  cmake_path(GET libgcc PARENT_PATH gcc_folder)
  set(more_libraries "-lssp -lpthread")
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
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
  else()
    # The C++ library calls from_chars<int> by its former name, an alias in the same object file. Where
    # one of our objects defines the function, lld drops that file's own, and the alias with it.
    string(CONCAT name "__ZSt10from_charsIiENSt9enable_ifIXsrSt5__or_I@S1_I@St7is_sameINSt9remove_cvIT_E4"
      "typeEaES2_IS6_sES2_IS6_iES2_IS6_lES2_IS6_xEEES1_I@S2_IS6_hES2_IS6_tES2_IS6_jES2_IS6_mES2_IS6_yEEES2_"
      "IcS6_EEE5valueESt17from_chars_resultE4typeEPKcSP_RS4_i")
    string(REPLACE "@" "I" former_name ${name})
    string(REPLACE "@" "J" name ${name})
    string(APPEND more_libraries " -Wl,-Xlink=-alternatename:${former_name}=${name}")
  endif()
  string(JOIN " " CMAKE_CXX_LINK_EXECUTABLE
    "${CLANGXX} --target=${MINGW_TRIPLET} -fuse-ld=lld -B${gcc_folder} -L${gcc_folder}"
    "<LINK_FLAGS> <OBJECTS> -o <TARGET> <LINK_LIBRARIES> ${more_libraries}")
  string(REPLACE " -o <TARGET>" " -shared -Wl,--out-implib,<TARGET_IMPLIB> -o <TARGET>"
    CMAKE_CXX_CREATE_SHARED_LIBRARY "${CMAKE_CXX_LINK_EXECUTABLE}")
endif()
