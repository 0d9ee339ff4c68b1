# Finds `zof`, which builds run, as a program of the machine that builds, and makes it the target zof::zof_tool. Used by this
# build when it is for another system, and by the CMake package for the builds of others.
#   ZOF_NATIVE_TOOL    the program; otherwise it is looked for in the folders given, then in PATH
macro(zof_native_tool)
  find_program(ZOF_NATIVE_TOOL zof HINTS ${ARGN} NO_PACKAGE_ROOT_PATH NO_CMAKE_PATH NO_CMAKE_ENVIRONMENT_PATH NO_CMAKE_SYSTEM_PATH
               NO_CMAKE_FIND_ROOT_PATH)
  if(ZOF_NATIVE_TOOL AND NOT TARGET zof::zof_tool)
    add_executable(zof::zof_tool IMPORTED GLOBAL)
    set_target_properties(zof::zof_tool PROPERTIES IMPORTED_LOCATION ${ZOF_NATIVE_TOOL})
  endif()
endmacro()
