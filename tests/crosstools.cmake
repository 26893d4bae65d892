# What the tests need when they are built for another system: GoogleTest from Debian's source package, and
# the JSON headers, which are the same on every system. Only these are taken: the folder around them
# holds the headers of this system.
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
if(NOT TARGET GTest::gmock)
  add_library(GTest::gmock ALIAS gmock)
  add_library(GTest::gtest_main ALIAS gtest_main)
endif()
file(COPY /usr/include/nlohmann DESTINATION ${CMAKE_BINARY_DIR}/headers)
include_directories(SYSTEM ${CMAKE_BINARY_DIR}/headers)
