# The page of `zof design`: built by node from tools/zof/design/page and embedded into the program. Without node and npm, or with
# -DZOF_DESIGN=OFF, `zof design` says that it is missing. The modules are installed once for all build trees.
option(ZOF_DESIGN "Build the page of zof design (needs node and npm)" ON)
find_program(ZOF_NODE NAMES node nodejs)
find_program(ZOF_NPM NAMES npm)
set(design_page_source ${CMAKE_CURRENT_SOURCE_DIR}/zof/design/page)
set(design_page ${CMAKE_CURRENT_BINARY_DIR}/design_page)
set(design_rows "")
set(design_built FALSE)

if(ZOF_DESIGN AND ZOF_NODE AND ZOF_NPM AND EXISTS ${design_page_source}/package-lock.json AND zof_design_texts)
  set(design_built TRUE)
  set_property(GLOBAL PROPERTY ZOF_DESIGN_BUILT TRUE)
  set(design_names index.html app.js app.css inter.woff2 jetbrains-mono.woff2 licences.txt)
  file(SHA256 ${design_page_source}/package-lock.json design_lock)
  string(SUBSTRING ${design_lock} 0 16 design_lock)
  set(design_modules ${PROJECT_SOURCE_DIR}/build/node-${design_lock})
  file(GLOB_RECURSE design_page_files CONFIGURE_DEPENDS ${design_page_source}/src/*)
  list(APPEND design_page_files ${design_page_source}/build.mjs ${design_page_source}/package-lock.json)
  list(TRANSFORM design_names PREPEND ${design_page}/ OUTPUT_VARIABLE design_made)
  add_custom_command(OUTPUT ${design_made} VERBATIM COMMENT "Building the page of zof design"
    COMMAND ${CMAKE_COMMAND} -DNPM=${ZOF_NPM} -DSOURCE=${design_page_source} -DMODULES=${design_modules}
            -P ${PROJECT_SOURCE_DIR}/cmake/design_modules.cmake
    COMMAND ${CMAKE_COMMAND} -E env NODE_PATH=${design_modules}/node_modules
            ${ZOF_NODE} ${design_page_source}/build.mjs --modules ${design_modules}/node_modules --out ${design_page}
    DEPENDS ${design_page_files} ${PROJECT_SOURCE_DIR}/cmake/design_modules.cmake)
  set(design_assembly ".section .rodata\n")
  if(WIN32)
    set(design_assembly ".section .rdata,\"dr\"\n")
  endif()
  set(design_header "")
  set(number 0)
  foreach(name IN LISTS design_names)
    string(APPEND design_assembly ".global design_page_${number}, design_page_${number}_end\ndesign_page_${number}:\n"
                                  ".incbin \"${design_page}/${name}\"\ndesign_page_${number}_end:\n.byte 0\n")
    string(APPEND design_header "extern \"C\" const unsigned char design_page_${number}[], design_page_${number}_end[];\n")
    string(APPEND design_rows "    {\"${name}\", design_page_${number}, design_page_${number}_end},\n")
    math(EXPR number "${number} + 1")
  endforeach()
  if(NOT WIN32)
    string(APPEND design_assembly ".section .note.GNU-stack,\"\",%progbits\n")
  endif()
  file(CONFIGURE OUTPUT design_page_files.S CONTENT "${design_assembly}" @ONLY)
  file(CONFIGURE OUTPUT design_page_files.h CONTENT
       "@design_header@static const struct {\n    const char *name;\n    const unsigned char *data, *end;\n} DESIGN_PAGE_FILES[] = {\n@design_rows@};\n" @ONLY)
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/design_page_files.S PROPERTIES OBJECT_DEPENDS "${design_made}")
else()
  message(STATUS "zof design is left out: it needs node and npm")
endif()
