# What the build for browsers has in place of the packages of a Linux machine: static libraries that third_party.sh builds
# once, and the headers of libraries that are headers only, which Debian has for all systems.
set(ZOF_WEB_CACHE "$ENV{ZOF_WEB_CACHE}" CACHE PATH "Where the libraries for browsers are kept between builds")
if(NOT ZOF_WEB_CACHE)
  set(ZOF_WEB_CACHE ${PROJECT_SOURCE_DIR}/build/web-libraries)
endif()
message(STATUS "Libraries for browsers: ${ZOF_WEB_CACHE} (the first time takes five minutes)")
execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/third_party.sh ${ZOF_WEB_CACHE} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The libraries for browsers could not be built.")
endif()
list(APPEND CMAKE_FIND_ROOT_PATH ${ZOF_WEB_CACHE}/root)
list(APPEND CMAKE_PREFIX_PATH /)
set(ENV{PKG_CONFIG_LIBDIR} ${ZOF_WEB_CACHE}/root/lib/pkgconfig)

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(Freetype REQUIRED)
set(PKG_CONFIG_ARGN --static)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
pkg_check_modules(CJSON REQUIRED IMPORTED_TARGET libcjson)
pkg_check_modules(TURBOJPEG REQUIRED IMPORTED_TARGET libturbojpeg)

# All of /usr/include would hide the headers of the system.
set(headers ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(library CLI boost)
  file(CREATE_LINK /usr/include/${library} ${headers}/${library} SYMBOLIC)
endforeach()
foreach(library CLI11::CLI11 Boost::headers)
  add_library(${library} INTERFACE IMPORTED)
  set_target_properties(${library} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${headers}
                                              INTERFACE_SYSTEM_INCLUDE_DIRECTORIES ${headers})
endforeach()

# Where Debian has the modules that emscripten's linker requires.
set_property(GLOBAL PROPERTY RULE_LAUNCH_LINK "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")
