# Warnings are errors of review, not of taste: hand-written code compiles without one.
set(CORVANE_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# Optimised as releases are, GCC 12 sees overlaps in plain string concatenation (its bug 105651, mended in 13).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12
   AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND CORVANE_WARNINGS $<$<CONFIG:Release>:-Wno-restrict>)
endif()

# Every source of the target is hand-written: warn about all of them.
function(corvane_strict_target target)
  target_compile_options(${target} PRIVATE ${CORVANE_WARNINGS})
endfunction()

# Code that the QML compiler generates trips -Wconversion and -Wshadow, so a target that holds QML names
# its hand-written sources instead.
function(corvane_strict_sources)
  set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_OPTIONS ${CORVANE_WARNINGS})
endfunction()

# Adds one GoogleTest program. corvane_test(NAME SOURCES a.cpp b.cpp LIBRARIES x y)
function(corvane_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock_main)
  corvane_strict_target(${name})
  # The optimizer's seventh of the compile time is worth nothing here: what takes time while a test runs lies in the
  # libraries.
  target_compile_options(${name} PRIVATE -O0)
  include(GoogleTest)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
