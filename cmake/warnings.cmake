# project_options: how every target of ours is compiled and linked. Third-party code
# (SQLite, GoogleTest) does not link it and keeps its own warnings.
add_library(project_options INTERFACE)

target_compile_features(project_options INTERFACE cxx_std_20)

if(MSVC)
  # Never tried.
  target_compile_options(project_options INTERFACE /W4 /WX /permissive- /EHsc /utf-8 /Zc:__cplusplus)
  target_compile_definitions(project_options INTERFACE
    UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
    _WIN32_WINNT=0x0601 WINVER=0x0601 _WIN32_IE=0x0800)
  return()
endif()

target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wshadow
  -Wconversion -Wsign-conversion -Wdouble-promotion
  -Wold-style-cast
  -Wcast-align
  -Woverloaded-virtual
  -Wformat=2
  -Wimplicit-fallthrough
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond$<SEMICOLON>-Wlogical-op>
  $<$<AND:$<CXX_COMPILER_ID:Clang>,$<NOT:$<BOOL:${WIN32}>>>:-Wreserved-identifier>
  -Wextra-semi
  -Wredundant-decls
  -fstack-protector-strong
  # The same bytes wherever the sources lie.
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)

if(WIN32)
  # Drops unreachable sections, and keeps the link time out of the binary.
  target_compile_options(project_options INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(project_options INTERFACE -Wl,--gc-sections -Wl,--no-insert-timestamp)
  target_compile_definitions(project_options INTERFACE
    UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
    _WIN32_WINNT=0x0601 WINVER=0x0601 _WIN32_IE=0x0800)
  # The runtime goes into the binary: the suite's machines have no mingw libraries.
  # -fstack-protector-strong again: at link time it brings in libssp.
  target_link_options(project_options INTERFACE
    -static -fstack-protector-strong -Wl,--dynamicbase -Wl,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    target_link_options(project_options INTERFACE -Wl,--high-entropy-va)
  endif()
else()
  # Not on Windows: an assertion would end the host's process.
  target_compile_definitions(project_options INTERFACE _GLIBCXX_ASSERTIONS)
  # Not on Windows: COM interfaces have no virtual destructor by their binary contract.
  target_compile_options(project_options INTERFACE -Wnon-virtual-dtor)
  target_link_options(project_options INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()

if(PRICEDOWN_SANITIZE)
  # A directory sets the variable of that name. The tested code is instrumented in full; in a test's
  # own code the checks for undefined behaviour and the fuzzer's counters only take time.
  define_property(TARGET PROPERTY PRICEDOWN_TEST_CODE INITIALIZE_FROM_VARIABLE PRICEDOWN_TEST_CODE)
  target_compile_options(project_options INTERFACE
    -fsanitize=address -fno-sanitize-recover=all -fno-omit-frame-pointer
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:PRICEDOWN_TEST_CODE>>>:-fsanitize=undefined,fuzzer-no-link>
    # Clang does not know all warnings of g++.
    -Wno-unknown-warning-option)
  target_link_options(project_options INTERFACE -fsanitize=address,undefined)
else()
  # Fortify and the sanitizers intercept the same functions and do not mix.
  target_compile_definitions(project_options INTERFACE _FORTIFY_SOURCE=2)
endif()
