# Palette glyphs of the design package: make_glyphs.py draws them at build time into a C++ source that
# adds them to the module's resource table; jex_palette_glyphs(<target>) compiles that source into the target.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(jex_palette_glyphs target)
  set(_script ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/make_glyphs.py)
  set(_out ${CMAKE_CURRENT_BINARY_DIR}/generated/palette_glyphs.cpp)
  add_custom_command(
    OUTPUT ${_out}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/generated
    COMMAND ${Python3_EXECUTABLE} ${_script} --cpp ${_out}
    DEPENDS ${_script}
    COMMENT "Drawing the palette glyphs"
    VERBATIM)
  target_sources(${target} PRIVATE ${_out})
endfunction()
