# What the build for Windows has in place of the packages of a Linux machine: static libraries that third_party.sh builds
# once, and the headers of libraries that are headers only, which Debian has for all systems.
set(ZOF_WINDOWS_CACHE "$ENV{ZOF_WINDOWS_CACHE}" CACHE PATH "Where the libraries for Windows are kept between builds")
if(NOT ZOF_WINDOWS_CACHE)
  set(ZOF_WINDOWS_CACHE ${PROJECT_SOURCE_DIR}/build/windows-libraries)
endif()
message(STATUS "Libraries for Windows: ${ZOF_WINDOWS_CACHE} (the first time takes five minutes)")
execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/third_party.sh ${ZOF_WINDOWS_CACHE} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The libraries for Windows could not be built.")
endif()
set(ZOF_WINDOWS_ROOT ${ZOF_WINDOWS_CACHE}/root)
list(APPEND CMAKE_FIND_ROOT_PATH ${ZOF_WINDOWS_ROOT})
list(APPEND CMAKE_PREFIX_PATH /)
set(ENV{PKG_CONFIG_LIBDIR} ${ZOF_WINDOWS_ROOT}/lib/pkgconfig)

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(Freetype REQUIRED)
set(PKG_CONFIG_ARGN --static)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
pkg_check_modules(CJSON REQUIRED IMPORTED_TARGET libcjson)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET libavformat libavcodec libswscale libswresample libavutil)

# All of /usr/include would hide the headers of Windows.
set(headers ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(library CLI boost doctest)
  file(CREATE_LINK /usr/include/${library} ${headers}/${library} SYMBOLIC)
endforeach()
foreach(library CLI11::CLI11 Boost::headers doctest::doctest)
  add_library(${library} INTERFACE IMPORTED)
  set_target_properties(${library} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${headers}
                                              INTERFACE_SYSTEM_INCLUDE_DIRECTORIES ${headers})
endforeach()
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
