# add_icons: icons for windows, rendered from vector sources when the product is built.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(OPTIPNG optipng REQUIRED)
find_program(ICOTOOL icotool REQUIRED)

# Renders `picture`, FOLDER/NAME.svg, into generated/FOLDER/NAME.ico and returns that path.
# FOLDER counts from src, or from the project outside of it.
function(render_icon result picture)
  cmake_path(RELATIVE_PATH picture BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE path)
  string(REGEX REPLACE "^src/" "" path ${path})
  cmake_path(REMOVE_EXTENSION path)
  set(base ${PROJECT_BINARY_DIR}/generated/${path})
  cmake_path(GET base PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  set(renderings)
  set(commands)
  # Pixels at 100%, 125%, 150%, 200%, 300% and 400%; between them the system scales down.
  foreach(size IN ITEMS 16 20 24 32 48 64)
    set(rendering ${base}-${size}.png)
    list(APPEND renderings ${rendering})
    list(APPEND commands
      COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${rendering} ${picture})
  endforeach()
  list(TRANSFORM renderings PREPEND --raw= OUTPUT_VARIABLE entries)
  # Windows reads PNG entries as 8-bit RGBA only: -nx keeps the colour type.
  add_custom_command(OUTPUT ${base}.ico
    ${commands}
    COMMAND ${OPTIPNG} -quiet -o2 -nx -strip all ${renderings}
    COMMAND ${ICOTOOL} --create --output=${base}.ico ${entries}
    DEPENDS ${picture}
    VERBATIM)
  set(${result} ${base}.ico PARENT_SCOPE)
endfunction()

# add_icons(TARGET FOLDER [EXTENDS TARGET]): an OBJECT library of FOLDER/icons.rc, which names the
# icons of FOLDER, and of the folder of EXTENDS if it includes that one's script. A program links
# one such library only: the numbers of two would collide.
function(add_icons target folder)
  cmake_parse_arguments(PARSE_ARGV 2 icons "" "EXTENDS" "")
  file(GLOB pictures CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.svg)
  set(files)
  foreach(picture IN LISTS pictures)
    render_icon(file ${picture})
    list(APPEND files ${file})
  endforeach()
  add_library(${target} OBJECT ${folder}/icons.rc)
  target_include_directories(${target} PRIVATE
    ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/generated)
  if(icons_EXTENDS)
    get_target_property(extended ${icons_EXTENDS} ICON_FILES)
    list(APPEND files ${extended})
    add_dependencies(${target} ${icons_EXTENDS})
  endif()
  set_target_properties(${target} PROPERTIES ICON_FILES "${files}")
  set_property(SOURCE ${folder}/icons.rc APPEND PROPERTY OBJECT_DEPENDS ${files})
endfunction()
