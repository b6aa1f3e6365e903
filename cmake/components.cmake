# One static library per component and one test program per tested component. Sources are found by
# globbing, so that a new file needs no edit here; CONFIGURE_DEPENDS makes every build look again.
# FOLDERS are relative to the calling CMakeLists.txt; default: the folder itself.

# find_files(RESULT PATTERN FOLDER...): the files of the folders whose names match.
function(find_files result pattern)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE patterns)
  list(TRANSFORM patterns APPEND /${pattern})
  file(GLOB files CONFIGURE_DEPENDS ${patterns})
  set(${result} ${files} PARENT_SCOPE)
endfunction()

# find_resources(RESULT FOLDER...): the resource scripts of the folders, depending on the files that
# they embed, which CMake does not see.
function(find_resources result)
  find_files(scripts *.rc ${ARGN})
  if(scripts)
    foreach(kind manifest ico bmp h)
      find_files(embedded *.${kind} ${ARGN})
      set_property(SOURCE ${scripts} APPEND PROPERTY OBJECT_DEPENDS ${embedded})
    endforeach()
  endif()
  set(${result} ${scripts} PARENT_SCOPE)
endfunction()

# optimize_for_size(): the targets of the calling CMakeLists.txt and of those below it are for Windows
# optimized for size. For code that waits for the user or the suite.
macro(optimize_for_size)
  if(WIN32)
    add_compile_options($<IF:$<BOOL:${MSVC}>,/O1,-Os>)
    set(precompiled_kind core_for_size)
  endif()
endmacro()

# count_runs(): with PRICEDOWN_COVERAGE the targets of the calling CMakeLists.txt and of those below it
# count which of their lines run; the lowest of them links ${counters}. The rest is compiled as usual.
macro(count_runs)
  if(PRICEDOWN_COVERAGE)
    add_compile_options(-O0 --coverage -U_FORTIFY_SOURCE)
    set(counters gcov)
    # Others of the kind do not count.
    set(precompiled_counted ${precompiled_${precompiled_kind}})
    set(precompiled_kind counted)
  endif()
endmacro()

# add_component(TARGET [FOLDERS folder...] INCLUDE_ROOT dir [LINK target...])
function(add_component target)
  cmake_parse_arguments(PARSE_ARGV 1 component "" "INCLUDE_ROOT" "FOLDERS;LINK")
  if(NOT component_FOLDERS)
    set(component_FOLDERS .)
  endif()
  find_files(sources *.cpp ${component_FOLDERS})
  add_library(${target} STATIC ${sources})
  target_include_directories(${target} PUBLIC ${component_INCLUDE_ROOT})
  target_link_libraries(${target} PUBLIC ${component_LINK} PRIVATE project_options)
  precompile(${target})
endfunction()

# add_program(TARGET [FOLDERS folder...] [LINK target...]): an executable of the folders'
# sources and resources.
function(add_program target)
  cmake_parse_arguments(PARSE_ARGV 1 program "" "" "FOLDERS;LINK")
  if(NOT program_FOLDERS)
    set(program_FOLDERS .)
  endif()
  find_files(sources *.cpp ${program_FOLDERS})
  if(WIN32)
    find_resources(resources ${program_FOLDERS})
  endif()
  add_executable(${target} ${sources} ${resources})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PRIVATE ${program_LINK} project_options)
  precompile(${target})
endfunction()

# add_test_component(NAME [LINK target...]): NAME/*.cpp become the program NAME_tests.
function(add_test_component name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LINK")
  add_program(${name}_tests FOLDERS ${name} LINK test_support ${test_LINK} GTest::gmock_main)
endfunction()

# add_com_library(TARGET [FOLDERS folder...] [LINK target...]): an in-process COM server TARGET.dll
# of the folders' sources, resources and .def file, stripped, its symbols beside it: TARGET.pdb for
# Windows debuggers, which holds all from clang and the functions' names from g++, whose
# TARGET.dll.debug (DWARF) holds all.
function(add_com_library target)
  cmake_parse_arguments(PARSE_ARGV 1 dll "" "" "FOLDERS;LINK")
  if(NOT dll_FOLDERS)
    set(dll_FOLDERS .)
  endif()
  find_files(sources *.cpp ${dll_FOLDERS})
  find_files(exports *.def ${dll_FOLDERS})
  find_resources(resources ${dll_FOLDERS})
  add_library(${target} SHARED ${sources} ${resources} ${exports})
  set_target_properties(${target} PROPERTIES PREFIX "")
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PRIVATE ${dll_LINK} project_options)
  precompile(${target})
  if(MSVC)
    # The exports file undecorates, and the PDB is the linker's own.
    return()
  endif()
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # COM asks for the undecorated names.
    target_link_options(${target} PRIVATE -Wl,--kill-at -Wl,--enable-stdcall-fixup)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # Named without its folder: the same bytes wherever it is built.
    target_link_options(${target} PRIVATE
      -Wl,--pdb=$<TARGET_FILE_DIR:${target}>/${target}.pdb -Wl,-Xlink=-pdbaltpath:${target}.pdb)
    # The runtime's libraries bring debug information of another form.
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0
        ${CMAKE_STRIP} --strip-all $<TARGET_FILE:${target}>
      VERBATIM)
    return()
  endif()
  find_program(PERL perl REQUIRED)
  # Relative to the build folder, where Ninja links: the same bytes wherever that is.
  cmake_path(RELATIVE_PATH CMAKE_RUNTIME_OUTPUT_DIRECTORY BASE_DIRECTORY ${PROJECT_BINARY_DIR}
    OUTPUT_VARIABLE programs)
  target_link_options(${target} PRIVATE -Wl,--pdb=${programs}/${target}.pdb)
  # The tools would write the current time; the same sources must give the same bytes.
  set(fixed_time ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${PERL} ${PROJECT_SOURCE_DIR}/cmake/fix_pdb_time.pl
      $<TARGET_FILE_DIR:${target}>/${target}.pdb $<TARGET_FILE:${target}>
    COMMAND ${fixed_time} ${CMAKE_OBJCOPY} --only-keep-debug
      $<TARGET_FILE:${target}> $<TARGET_FILE:${target}>.debug
    COMMAND ${fixed_time} ${CMAKE_STRIP} --strip-all $<TARGET_FILE:${target}>
    COMMAND ${fixed_time} ${CMAKE_OBJCOPY} --add-gnu-debuglink=$<TARGET_FILE:${target}>.debug
      $<TARGET_FILE:${target}>
    VERBATIM)
endfunction()
