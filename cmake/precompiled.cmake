# precompile(TARGET): the system's headers are parsed once for all targets of a kind, which halves
# the time of a Windows build. A directory chooses by setting `precompiled_kind`: core (without it),
# core_for_size, windows or tests. Off in the preset `linux`, which shows when a file lacks an include.

set(precompiled_core
  <algorithm> <array> <cstdint> <functional> <memory> <optional> <span> <string> <string_view>
  <utility> <variant> <vector>)
set(precompiled_core_for_size ${precompiled_core})
set(precompiled_windows
  <windows.h> <ole2.h> <oleauto.h> <ocidl.h> <olectl.h> <commctrl.h> ${precompiled_core})
set(precompiled_tests <gtest/gtest.h> <gmock/gmock.h> ${precompiled_core})
if(WIN32)
  list(PREPEND precompiled_tests ${precompiled_windows})
endif()

# Creates the target whose precompiled headers all targets of a kind reuse, where the kind is first
# used, to get that directory's options. Its name must not end in _tests.
function(add_precompiled kind)
  set(source ${PROJECT_BINARY_DIR}/generated/precompiled_${kind}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "int main() {}\n")
  if(kind STREQUAL tests)
    add_executable(${kind}_precompiled ${source})
    target_link_libraries(${kind}_precompiled PRIVATE GTest::gmock)
  else()
    add_library(${kind}_precompiled STATIC ${source})
  endif()
  target_link_libraries(${kind}_precompiled PRIVATE project_options)
  target_compile_options(${kind}_precompiled PRIVATE -fpch-preprocess)
  target_precompile_headers(${kind}_precompiled PRIVATE ${precompiled_${kind}})
endfunction()

function(precompile target)
  if(NOT PRICEDOWN_PRECOMPILE)
    return()
  endif()
  if(NOT precompiled_kind)
    set(precompiled_kind core)
  endif()
  get_target_property(linked ${target} LINK_LIBRARIES)
  if(precompiled_kind STREQUAL tests AND NOT linked MATCHES GTest)
    return()
  endif()
  if(NOT TARGET ${precompiled_kind}_precompiled)
    add_precompiled(${precompiled_kind})
  endif()
  # Natively programs and libraries are compiled with different flags.
  get_target_property(type ${target} TYPE)
  get_target_property(precompiled_type ${precompiled_kind}_precompiled TYPE)
  if(NOT WIN32 AND NOT type STREQUAL precompiled_type)
    return()
  endif()
  # So that ccache sees the contents.
  target_compile_options(${target} PRIVATE -fpch-preprocess)
  target_precompile_headers(${target} REUSE_FROM ${precompiled_kind}_precompiled)
endfunction()
