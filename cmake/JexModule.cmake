# Helpers shared by the modules: a test target per folder, registered with CTest.

# jex_add_tests(NAME SOURCES... LIBS ...): one GoogleTest executable, its cases discovered by CTest.
function(jex_add_tests name)
  if(NOT JEX_BUILD_TESTS)
    return()
  endif()
  cmake_parse_arguments(T "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gtest GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
