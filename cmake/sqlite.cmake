# sqlite3: the pinned amalgamation, the same version natively and on Windows.
set(sqlite_dir ${PROJECT_SOURCE_DIR}/build/third_party/sqlite3)
find_program(BASH bash REQUIRED)
execute_process(
  COMMAND ${BASH} ${PROJECT_SOURCE_DIR}/scripts/fetch-sqlite ${sqlite_dir}
  COMMAND_ERROR_IS_FATAL ANY)

add_library(sqlite3 STATIC EXCLUDE_FROM_ALL ${sqlite_dir}/sqlite3.c)
target_include_directories(sqlite3 SYSTEM INTERFACE ${sqlite_dir})
target_compile_definitions(sqlite3 PRIVATE
  SQLITE_THREADSAFE=1
  SQLITE_DEFAULT_MEMSTATUS=0
  SQLITE_OMIT_LOAD_EXTENSION)
# Third-party code: none of our warnings.
target_compile_options(sqlite3 PRIVATE -w -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
# A third to a twentieth of the time to compile; the companies of tests and workbench are small.
# 32-bit Windows is not measured.
if(PRICEDOWN_SANITIZE OR (WIN32 AND CMAKE_SIZEOF_VOID_P EQUAL 4))
  target_compile_options(sqlite3 PRIVATE -O0 -g0 -U_FORTIFY_SOURCE)
elseif(WIN32)
  target_compile_options(sqlite3 PRIVATE -O1 -g0)
endif()
if(NOT WIN32)
  target_link_libraries(sqlite3 INTERFACE m pthread)
endif()
