# GTest::gmock_main: Debian's library natively, its sources built with the mingw compilers
# for Windows, because no mingw package of it exists.
if(WIN32)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
else()
  find_package(GTest REQUIRED)
endif()
