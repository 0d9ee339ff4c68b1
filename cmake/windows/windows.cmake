# The libraries of the Windows programs, and what is in each program besides its code.
include(cmake/libraries.cmake)
zof_libraries(Windows ZOF_WINDOWS_CACHE windows-libraries)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET libavformat libavcodec libswscale libswresample libavutil)
set(ZOF_COMPILER_PACKAGES mingw-w64-common gcc-mingw-w64-base) # whose licences belong to the programs
set_target_properties(Boost::headers PROPERTIES INTERFACE_LINK_LIBRARIES "ws2_32;mswsock")

# Nothing of the compiler is installed beside the programs, and no names of functions are in them.
add_link_options(-static -s)

# The entry of every program, which turns arguments and environment into UTF-8; and its icon, version and manifest.
add_library(zof_entry OBJECT ${PROJECT_SOURCE_DIR}/zof_src/port/host_win32_main.cpp)
target_link_options(zof_entry INTERFACE -municode)

# Gives a program the entry, and its resources.   zof_windows_program(TARGET "What it is")
function(zof_windows_program target description)
  get_target_property(name ${target} OUTPUT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  string(REPLACE . "," version ${PROJECT_VERSION}.0)
  set(program ${name}.exe)
  set(icon ${PROJECT_BINARY_DIR}/zof.ico)
  set(manifest ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/program.manifest)
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/program.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc PROPERTY OBJECT_DEPENDS "${icon};${manifest}")
  target_link_libraries(${target} PRIVATE zof_entry)
endfunction()
