# Glyphs of the design package, drawn at build time: each generator writes a C++ source that adds its
# bitmaps to the module's resource table, and the functions below compile that source into a target.
#   jex_palette_glyphs(<target>)    the palette glyphs (make_glyphs.py)
#   jex_navigator_glyphs(<target>)  the navigator button glyphs and the navigator wizard's (make_nav_glyphs.py)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# Runs <script> --cpp generated/<output> when the script or the shared drawing kit changes.
function(_jex_drawn_glyphs target script output comment)
  set(_dir ${CMAKE_CURRENT_FUNCTION_LIST_DIR})
  set(_out ${CMAKE_CURRENT_BINARY_DIR}/generated/${output})
  add_custom_command(
    OUTPUT ${_out}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/generated
    COMMAND ${Python3_EXECUTABLE} ${_dir}/${script} --cpp ${_out}
    DEPENDS ${_dir}/${script} ${_dir}/glyphlib.py
    COMMENT "${comment}"
    VERBATIM)
  target_sources(${target} PRIVATE ${_out})
endfunction()

function(jex_palette_glyphs target)
  _jex_drawn_glyphs(${target} make_glyphs.py palette_glyphs.cpp "Drawing the palette glyphs")
endfunction()

function(jex_navigator_glyphs target)
  _jex_drawn_glyphs(${target} make_nav_glyphs.py navigator_glyphs.cpp "Drawing the navigator glyphs")
endfunction()
