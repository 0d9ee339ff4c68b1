# The libraries of a page, and what emscripten needs to link it.
include(cmake/libraries.cmake)
zof_libraries(browsers ZOF_WEB_CACHE web-libraries)
pkg_check_modules(TURBOJPEG REQUIRED IMPORTED_TARGET libturbojpeg)
set(ZOF_COMPILER_PACKAGES emscripten) # whose licences belong to a page

# Where Debian has the modules that emscripten's linker requires.
set_property(GLOBAL PROPERTY RULE_LAUNCH_LINK "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")
