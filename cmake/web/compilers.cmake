# Cross compilation for browsers with Debian's emscripten, with threads.
find_path(ZOF_EMSCRIPTEN cmake/Modules/Platform/Emscripten.cmake PATHS /usr/share/emscripten $ENV{EMSCRIPTEN} NO_CACHE)
if(NOT ZOF_EMSCRIPTEN)
  message(FATAL_ERROR "There is no emscripten: run tools/packages web")
endif()
include(${ZOF_EMSCRIPTEN}/cmake/Modules/Platform/Emscripten.cmake)
set(CMAKE_C_FLAGS_INIT "-pthread")
set(CMAKE_CXX_FLAGS_INIT "-pthread")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-pthread")
