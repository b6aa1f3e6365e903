# GTest::gmock_main: for Windows the sources of the package `googletest` where they are, because a
# cross compiler has no built one; else the built package.
if(WIN32)
  find_path(GOOGLETEST_SOURCE_DIR googlemock/CMakeLists.txt
    PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
endif()
if(GOOGLETEST_SOURCE_DIR)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  block()
    include(cmake/quick_tests.cmake)
    add_subdirectory(${GOOGLETEST_SOURCE_DIR} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  endblock()
  # As the tests' own code: quicker to compile than to run.
  foreach(library gtest gmock gmock_main)
    target_compile_options(${library} PRIVATE -O0 -g0)
  endforeach()
else()
  find_package(GTest REQUIRED)
endif()
