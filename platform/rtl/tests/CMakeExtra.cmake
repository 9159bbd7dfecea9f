# Test-only modules of the rtl tests: jexresmod, a shared library with its own resource table that the
# resource tests load, translate and unload again.
if(TARGET jexrtl_tests)
  add_library(jexresmod MODULE ${CMAKE_CURRENT_SOURCE_DIR}/tests/resmodule/resmodule.cpp)
  target_link_libraries(jexresmod PRIVATE jexrtl)
  add_dependencies(jexrtl_tests jexresmod)
  # Export the test program's symbols, as a host does for its packages, so that a module whose strings
  # bound to equally named symbols elsewhere would fail the tests.
  set_target_properties(jexrtl_tests PROPERTIES ENABLE_EXPORTS ON)
  target_compile_definitions(jexrtl_tests PRIVATE JEX_RESMODULE_FILE="$<TARGET_FILE:jexresmod>")
endif()
