# jexdesign_tests run the built executable on real packages: the platform/ide test packages and the host's
# own test package (a container component whose editor shows a dialog and a message box, and the exported
# description routine).
file(GLOB _jexdesign_tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/tests/*.cpp)
jex_add_tests(jexdesign_tests SOURCES ${_jexdesign_tests} LIBS jexdesign_core)
if(TARGET jexdesign_tests)
  add_library(dcljexhosttest SHARED ${CMAKE_CURRENT_SOURCE_DIR}/tests/pkg/hostpkg.cpp)
  target_link_libraries(dcljexhosttest PRIVATE jexide)
  set_target_properties(dcljexhosttest PROPERTIES BUILD_WITH_INSTALL_RPATH TRUE INSTALL_RPATH "$ORIGIN")
  add_dependencies(jexdesign_tests jexdesign dcljexhosttest)
  target_compile_definitions(jexdesign_tests PRIVATE
    JEXDESIGN_EXE="$<TARGET_FILE:jexdesign>"
    JEX_HOSTTEST_PACKAGE="$<TARGET_FILE:dcljexhosttest>"
    JEX_PACKAGE_TEST_DATA="${PROJECT_SOURCE_DIR}/package/tests/data")
  # The standard packages, loaded from beside the executable.
  if(TARGET dclJEXC)
    add_dependencies(jexdesign_tests dclJEXC jexc60)
  endif()
  if(TARGET dcljextest)
    add_dependencies(jexdesign_tests jextestrt dcljextest dclmissingreq jexnotapkg)
    target_compile_definitions(jexdesign_tests PRIVATE
      JEX_LAMP_PACKAGE="$<TARGET_FILE:dcljextest>"
      JEX_LAMP_RUNTIME="$<TARGET_FILE:jextestrt>"
      JEX_MISSINGREQ_PACKAGE="$<TARGET_FILE:dclmissingreq>"
      JEX_NOTAPKG_PACKAGE="$<TARGET_FILE:jexnotapkg>")
  endif()
endif()
