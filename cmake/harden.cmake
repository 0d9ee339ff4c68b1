# Hardens release builds against the exploitation of memory faults: overflows of stack buffers and in calls of the C
# library end the program, addresses differ from run to run, and function tables are read-only after start. Sanitized and
# debug builds find such faults by other means, and fortified calls need optimisation.
if(EMSCRIPTEN)
  return() # the browser isolates a page and its functions
endif()
include(CheckPIESupported)
include(CheckCCompilerFlag)
check_pie_supported(LANGUAGES C CXX)
if(NOT ZOF_SANITIZE AND CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
  add_compile_options(-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  if(WIN32)
    add_link_options(-Wl,--dynamicbase,--nxcompat,--high-entropy-va)
    link_libraries(ssp)
    return()
  endif()
  add_link_options(-Wl,-z,relro -Wl,-z,now)
  foreach(option -fcf-protection=full -mbranch-protection=standard) # x86, ARM
    string(MAKE_C_IDENTIFIER ZOF_HAS${option} known)
    check_c_compiler_flag(${option} ${known})
    if(${known})
      add_compile_options(${option})
    endif()
  endforeach()
endif()
