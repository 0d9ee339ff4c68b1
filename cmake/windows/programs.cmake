# The resources of the programs, and the archive that is unpacked on a Windows machine.
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/zof.ico VERBATIM COMMENT "Icon"
  COMMAND ${ZOF_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/icon.py ${ZOF_BENCH_STAGE}/res/image/logo.png ${PROJECT_BINARY_DIR}/zof.ico
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/icon.py ${pictures})
add_custom_target(zof_icon DEPENDS ${PROJECT_BINARY_DIR}/zof.ico)
zof_windows_program(zof_bench "Panel of a bench supply")
zof_windows_program(board_sim "The box that the panel controls, simulated")
zof_windows_program(zof_tool "Tools for project folders of touch panels")
add_custom_target(zof_windows ALL DEPENDS zof_bench board_sim zof_tool)
foreach(program zof_bench board_sim zof_tool)
  add_dependencies(${program} zof_icon)
endforeach()
