# add_type_library: widl turns an .idl file into NAME.h, NAME_i.c (its GUIDs) and NAME.tlb
# under generated/windows/server/idl, so that sources include "windows/server/idl/NAME.h" and resource
# scripts name "windows/server/idl/NAME.tlb".

# The toolchain files name the triplet; the one of the target comes first.
find_program(WIDL NAMES ${MINGW_TRIPLET}-widl widl REQUIRED)
# On Debian Wine's, on Windows those of the mingw headers.
find_path(IDL_DIR oaidl.idl
  PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
  NO_CMAKE_FIND_ROOT_PATH REQUIRED)
# The type library format does not depend on the target; the 64-bit copy serves both.
find_path(STDOLE2_DIR stdole2.tlb
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows
    $ENV{SystemRoot}/System32
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)

find_program(PERL perl REQUIRED)

# add_type_library(TARGET IDL_FILE...): an INTERFACE library that carries the include folder
# and the build order.
function(add_type_library target)
  set(root ${PROJECT_BINARY_DIR}/generated)
  set(folder ${root}/windows/server/idl)
  file(MAKE_DIRECTORY ${folder})
  set(outputs)
  foreach(idl IN LISTS ARGN)
    cmake_path(GET idl STEM name)
    add_custom_command(
      OUTPUT ${folder}/${name}.h ${folder}/${name}_i.c ${folder}/${name}.tlb
      COMMAND ${WIDL} -I ${IDL_DIR} -L ${STDOLE2_DIR}
        -h -H ${folder}/${name}.h -u -U ${folder}/${name}_i.c ${idl}
      COMMAND ${WIDL} -I ${IDL_DIR} -L ${STDOLE2_DIR}
        -t -T ${folder}/${name}.tlb ${idl}
      COMMAND ${PERL} ${PROJECT_SOURCE_DIR}/cmake/fix_library_time.pl ${folder}/${name}.tlb
      COMMAND ${CMAKE_COMMAND} -D IDL=${idl} -D TLB=${folder}/${name}.tlb
        -P ${PROJECT_SOURCE_DIR}/cmake/check_library_id.cmake
      DEPENDS ${idl} ${PROJECT_SOURCE_DIR}/cmake/check_library_id.cmake
        ${PROJECT_SOURCE_DIR}/cmake/fix_library_time.pl
      VERBATIM)
    list(APPEND outputs ${folder}/${name}.h ${folder}/${name}_i.c ${folder}/${name}.tlb)
  endforeach()
  add_custom_target(${target}_files DEPENDS ${outputs})
  add_library(${target} INTERFACE)
  # SYSTEM: no warnings in generated code.
  target_include_directories(${target} SYSTEM INTERFACE ${root})
  add_dependencies(${target} ${target}_files)
endfunction()

# add_interfaces(TARGET HEADER): an INTERFACE library that carries generated/HEADER, the interfaces of
# the .idl file of that name under src.
function(add_interfaces target header)
  set(output ${PROJECT_BINARY_DIR}/generated/${header})
  cmake_path(REPLACE_EXTENSION header idl OUTPUT_VARIABLE idl)
  cmake_path(GET output PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${WIDL} -I ${IDL_DIR} -h -H ${output} ${PROJECT_SOURCE_DIR}/src/${idl}
    DEPENDS ${PROJECT_SOURCE_DIR}/src/${idl}
    VERBATIM)
  add_custom_target(${target}_files DEPENDS ${output})
  add_library(${target} INTERFACE)
  # SYSTEM: generated code does not meet our warnings.
  target_include_directories(${target} SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/generated)
  add_dependencies(${target} ${target}_files)
endfunction()
