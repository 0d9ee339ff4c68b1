# Manual pages: `zof` writes its own; those of the other programs are made of what --help prints.

# Compresses a page and installs it.   zof_manual_install(PAGE COMPONENT TARGET)
function(zof_manual_install page component target)
  add_custom_command(OUTPUT ${page}.gz VERBATIM COMMAND ${ZOF_GZIP} -9nkf ${page} DEPENDS ${page} ${target})
  add_custom_target(${target}_manual ALL DEPENDS ${page}.gz)
  install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
endfunction()
function(zof_manual_page program component)
  set(page ${PROJECT_BINARY_DIR}/man/${program}.1)
  add_custom_command(OUTPUT ${page} VERBATIM COMMENT "Manual page of ${program}"
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${program}> -DPAGE=${page} -DVERSION=${PROJECT_VERSION}
            -P ${PROJECT_SOURCE_DIR}/cmake/manual_page.cmake
    DEPENDS ${program} ${PROJECT_SOURCE_DIR}/cmake/manual_page.cmake)
  zof_manual_install(${page} ${component} ${program})
endfunction()
if(NOT CMAKE_CROSSCOMPILING)
  zof_manual_page(zof_bench bench)
  zof_manual_page(board_sim tools)
  zof_manual_page(zof_player tools)
endif()
zof_manual_install(${PROJECT_BINARY_DIR}/tools/zof.1 tools zof_describe)
