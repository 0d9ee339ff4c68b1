# The resources of the programs, and the archive that is unpacked on a Windows machine.
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/zof.ico VERBATIM COMMENT "Icon"
  COMMAND ${ZOF_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/icon.py ${ZOF_BENCH_STAGE}/res/image/logo.png ${PROJECT_BINARY_DIR}/zof.ico
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/icon.py ${pictures})
add_custom_target(zof_icon DEPENDS ${PROJECT_BINARY_DIR}/zof.ico)
zof_windows_program(zof_bench "Panel of a bench supply")
zof_windows_program(board_sim "The box that the panel controls, simulated")
zof_windows_program(zof_tool "Tools for project folders of touch panels")
zof_windows_program(zof_player "Runs project folders of touch panels for other programs")
set(zof_programs zof_bench board_sim zof_tool zof_player)
add_custom_target(zof_windows ALL DEPENDS ${zof_programs})
foreach(program IN LISTS zof_programs)
  add_dependencies(${program} zof_icon)
endforeach()

# Needs no installation: a folder with the programs and what they read.
set(zof_archive zof-bench-${PROJECT_VERSION}-windows)
set(zof_stage ${PROJECT_BINARY_DIR}/archive/${zof_archive})
add_custom_target(zof_zip COMMENT "${zof_archive}.zip" VERBATIM
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${PROJECT_BINARY_DIR}/archive
  COMMAND ${CMAKE_COMMAND} -E make_directory ${zof_stage}
  COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_FILE:zof_bench> $<TARGET_FILE:board_sim> $<TARGET_FILE:zof_tool> $<TARGET_FILE:zof_player>
          ${CMAKE_CURRENT_LIST_DIR}/README.txt ${zof_stage}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${ZOF_BENCH_STAGE}/res ${zof_stage}/res
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${ZOF_BENCH_STAGE}/licences ${zof_stage}/licences
  COMMAND ${CMAKE_COMMAND} -E chdir ${PROJECT_BINARY_DIR}/archive ${CMAKE_COMMAND} -E tar cf ${PROJECT_BINARY_DIR}/${zof_archive}.zip
          --format=zip ${zof_archive}
  DEPENDS ${zof_programs} bench_res)

# The gallery, for tests.
target_link_libraries(gallery PRIVATE zof_entry)
