# add_room and add_test_room: one library per room, one test program per test room.

# Sources are found by globbing, so that a new file needs no edit here; CONFIGURE_DEPENDS
# makes every build look again. A room without sources is an INTERFACE library, so that the
# rooms above it can already name it.
#
#   add_room(TARGET [FOLDERS folder...] [INCLUDE_ROOT dir] [LINK target...])
#
# FOLDERS are relative to the calling CMakeLists.txt; default: the folder itself.
function(add_room target)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "INCLUDE_ROOT" "FOLDERS;LINK")
  if(NOT room_FOLDERS)
    set(room_FOLDERS .)
  endif()
  list(TRANSFORM room_FOLDERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  list(TRANSFORM room_FOLDERS APPEND /*.cpp)
  file(GLOB sources CONFIGURE_DEPENDS ${room_FOLDERS})

  if(sources)
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${room_INCLUDE_ROOT})
    target_link_libraries(${target} PUBLIC ${room_LINK} PRIVATE project_options)
    precompile(${target})
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${room_INCLUDE_ROOT})
    target_link_libraries(${target} INTERFACE ${room_LINK})
  endif()
endfunction()

# Finds the resource scripts of FOLDERS (relative) and makes them depend on the files they embed,
# which CMake does not see.
function(find_resources result)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE folders)
  list(TRANSFORM folders APPEND /*.rc OUTPUT_VARIABLE script_patterns)
  set(embedded_patterns)
  foreach(kind manifest ico bmp h)
    list(TRANSFORM folders APPEND /*.${kind} OUTPUT_VARIABLE patterns)
    list(APPEND embedded_patterns ${patterns})
  endforeach()
  file(GLOB scripts CONFIGURE_DEPENDS ${script_patterns})
  file(GLOB embedded CONFIGURE_DEPENDS ${embedded_patterns})
  if(scripts)
    set_property(SOURCE ${scripts} APPEND PROPERTY OBJECT_DEPENDS ${embedded})
  endif()
  set(${result} ${scripts} PARENT_SCOPE)
endfunction()

# add_program(TARGET [FOLDERS folder...] [LINK target...]): an executable of the folder's
# sources, or nothing as long as the folder has none.
function(add_program target)
  cmake_parse_arguments(PARSE_ARGV 1 program "GUI" "" "FOLDERS;LINK")
  if(NOT program_FOLDERS)
    set(program_FOLDERS .)
  endif()
  list(TRANSFORM program_FOLDERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE patterns)
  list(TRANSFORM patterns APPEND /*.cpp)
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  if(WIN32)
    find_resources(resources ${program_FOLDERS})
  endif()
  if(NOT sources)
    return()
  endif()
  add_executable(${target} ${sources} ${resources})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PRIVATE ${program_LINK} project_options)
  precompile(${target})
  if(program_GUI)
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
  endif()
endfunction()

# add_test_room(ROOM [LINK target...]): tests/ROOM/*.cpp become the program ROOM_tests.
function(add_test_room room)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "LINK")
  add_program(${room}_tests FOLDERS ${room} LINK test_support ${test_LINK} GTest::gmock_main)
  if(TARGET ${room}_tests)
    add_test(NAME ${room}_tests COMMAND ${room}_tests)
  endif()
endfunction()

# add_com_library(TARGET [FOLDERS folder...] [LINK target...]): an in-process COM server
# TARGET.dll of the folders' sources, resources and .def file, stripped, its symbols beside
# it in TARGET.dll.debug; nothing as long as there are no sources.
function(add_com_library target)
  cmake_parse_arguments(PARSE_ARGV 1 dll "" "" "FOLDERS;LINK")
  if(NOT dll_FOLDERS)
    set(dll_FOLDERS .)
  endif()
  list(TRANSFORM dll_FOLDERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE folders)
  list(TRANSFORM folders APPEND /*.cpp OUTPUT_VARIABLE source_patterns)
  list(TRANSFORM folders APPEND /*.def OUTPUT_VARIABLE export_patterns)
  find_resources(resources ${dll_FOLDERS})
  file(GLOB sources CONFIGURE_DEPENDS ${source_patterns})
  file(GLOB exports CONFIGURE_DEPENDS ${export_patterns})
  if(NOT sources)
    return()
  endif()
  add_library(${target} SHARED ${sources} ${resources} ${exports})
  set_target_properties(${target} PROPERTIES PREFIX "")
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PRIVATE ${dll_LINK} project_options)
  precompile(${target})
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # COM asks for the undecorated names.
    target_link_options(${target} PRIVATE -Wl,--kill-at -Wl,--enable-stdcall-fixup)
  endif()
  # The tools write the time into what they change; the same sources are to give the same bytes.
  set(fixed_time ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${fixed_time} ${CMAKE_OBJCOPY} --only-keep-debug
      $<TARGET_FILE:${target}> $<TARGET_FILE:${target}>.debug
    COMMAND ${fixed_time} ${CMAKE_STRIP} --strip-all $<TARGET_FILE:${target}>
    COMMAND ${fixed_time} ${CMAKE_OBJCOPY} --add-gnu-debuglink=$<TARGET_FILE:${target}>.debug
      $<TARGET_FILE:${target}>
    VERBATIM)
endfunction()
