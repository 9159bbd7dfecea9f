# Test-only additions for platform/vcl, included by ../CMakeLists.txt.

# Graphics: reference BMP files written at build time by an encoder independent of the library (Python's
# standard library); the tests skip those comparisons when Python is missing.
find_package(Python3 COMPONENTS Interpreter)
if(TARGET jexvcl_tests AND Python3_Interpreter_FOUND)
  set(JEX_BMP_REFERENCE_DIR ${CMAKE_CURRENT_BINARY_DIR}/bmp_reference)
  set(_jex_bmp_script ${CMAKE_CURRENT_SOURCE_DIR}/tests/make_reference_bmps.py)
  add_custom_command(
    OUTPUT ${JEX_BMP_REFERENCE_DIR}/rgb_24bpp.bmp
    COMMAND ${Python3_EXECUTABLE} ${_jex_bmp_script} ${JEX_BMP_REFERENCE_DIR}
    DEPENDS ${_jex_bmp_script}
    COMMENT "Writing reference BMP files for the graphics tests")
  add_custom_target(jexvcl_bmp_reference DEPENDS ${JEX_BMP_REFERENCE_DIR}/rgb_24bpp.bmp)
  add_dependencies(jexvcl_tests jexvcl_bmp_reference)
  target_compile_definitions(jexvcl_tests PRIVATE JEX_BMP_REFERENCE_DIR="${JEX_BMP_REFERENCE_DIR}")
endif()
