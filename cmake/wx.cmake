# wx: the core of the toolkit wxWidgets, whose ActiveX container is one that others wrote, with no
# feature beyond that. No target where its sources cannot be had.
set(wx_dir ${PROJECT_SOURCE_DIR}/build/third_party/wx)
execute_process(COMMAND ${BASH} ${PROJECT_SOURCE_DIR}/scripts/fetch-wx ${wx_dir}
  RESULT_VARIABLE wx_result ERROR_VARIABLE wx_error)
if(NOT wx_result EQUAL 0)
  message(STATUS "wx: not built: ${wx_error}")
  return()
endif()

# Its settings for Windows, all off but these.
set(wx_features UNICODE GUI EXCEPTIONS THREADS STREAMS DYNLIB_CLASS REGKEY
  OLE DATAOBJ VARIANT ACTIVEX CONTROLS IMAGE MENUS MENUBAR FILE FFILE WXDIB UXTHEME)
file(READ ${wx_dir}/include/wx/msw/setup.h wx_settings)
string(REGEX REPLACE "(define wxUSE_[A-Z0-9_]+ +)1" "\\10" wx_settings "${wx_settings}")
foreach(feature ${wx_features})
  string(REGEX REPLACE "(define wxUSE_${feature} +)0" "\\11" wx_settings "${wx_settings}")
endforeach()
set(wx_include ${CMAKE_BINARY_DIR}/wx/include)
file(CONFIGURE OUTPUT ${wx_include}/wx/setup.h CONTENT "${wx_settings}" @ONLY)

include(${wx_dir}/build/cmake/files.cmake)
set(wx_sources ${BASE_CMN_SRC} ${BASE_AND_GUI_CMN_SRC} ${BASE_WIN32_SRC} ${BASE_AND_GUI_WIN32_SRC}
  ${GUI_CMN_SRC} ${MSW_LOWLEVEL_SRC} ${MSW_DESKTOP_LOWLEVEL_SRC} ${MSW_SRC} ${MSW_DESKTOP_SRC})
list(FILTER wx_sources INCLUDE REGEX "^src/(common|generic|msw)/.*\\.cpp$")
list(REMOVE_DUPLICATES wx_sources)
list(TRANSFORM wx_sources PREPEND ${wx_dir}/)

# It undefines what later files of a batch need.
set_source_files_properties(${wx_dir}/src/common/strconv.cpp PROPERTIES
  SKIP_UNITY_BUILD_INCLUSION ON)
# Without its precompiled headers it includes this, with them only if there are text fields.
set_source_files_properties(${wx_dir}/src/common/event.cpp PROPERTIES
  SKIP_UNITY_BUILD_INCLUSION ON COMPILE_OPTIONS "-include;wx/textentry.h")
add_library(wx STATIC EXCLUDE_FROM_ALL ${wx_sources})
target_compile_features(wx PUBLIC cxx_std_17)
target_include_directories(wx SYSTEM PUBLIC ${wx_include} ${wx_dir}/include)
# The highest level: its own checks of each COM call are assertions.
target_compile_definitions(wx PUBLIC __WXMSW__ UNICODE _UNICODE wxDEBUG_LEVEL=2
  PRIVATE WXBUILDING WX_PRECOMP)
target_compile_options(wx PRIVATE -w -O0 -g0)
target_precompile_headers(wx PRIVATE <wx/wxprec.h>)
set_target_properties(wx PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 30)
target_link_libraries(wx PUBLIC kernel32 user32 gdi32 comdlg32 winspool shell32 shlwapi comctl32
  ole32 oleaut32 uuid advapi32 version uxtheme rpcrt4 oleacc winmm)
