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

# Needs no installation: a folder with the programs and what they read.
set(zof_archive zof-bench-${PROJECT_VERSION}-windows)
set(zof_stage ${PROJECT_BINARY_DIR}/archive/${zof_archive})
add_custom_target(zof_zip COMMENT "${zof_archive}.zip" VERBATIM
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${PROJECT_BINARY_DIR}/archive
  COMMAND ${CMAKE_COMMAND} -E make_directory ${zof_stage}
  COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_FILE:zof_bench> $<TARGET_FILE:board_sim> $<TARGET_FILE:zof_tool>
          ${CMAKE_CURRENT_LIST_DIR}/README.txt ${zof_stage}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${ZOF_BENCH_STAGE}/res ${zof_stage}/res
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${ZOF_BENCH_STAGE}/licences ${zof_stage}/licences
  COMMAND ${CMAKE_COMMAND} -E chdir ${PROJECT_BINARY_DIR}/archive ${CMAKE_COMMAND} -E tar cf ${PROJECT_BINARY_DIR}/${zof_archive}.zip
          --format=zip ${zof_archive}
  DEPENDS zof_bench board_sim zof_tool bench_res)

# Tests that run as Windows programs: the ground, and the host layer.
add_library(zof_test_main OBJECT ${PROJECT_SOURCE_DIR}/tests/zof_test_main.cpp)
target_link_libraries(zof_test_main PUBLIC doctest::doctest)
add_custom_target(zof_windows_tests)
foreach(source unit/util_test unit/list_test unit/names_test unit/jdoc_test unit/cson_test unit/memory_test unit/host_test windows/win32_test)
  get_filename_component(test ${source} NAME)
  add_executable(${test} EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/tests/${source}.cpp)
  target_include_directories(${test} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tests/unit)
  target_compile_options(${test} PRIVATE -O0 -include ${PROJECT_SOURCE_DIR}/tests/windows/posix.h)
  target_link_libraries(${test} PRIVATE zof zof_test_main zof_entry doctest::doctest)
  set_target_properties(${test} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  zof_warnings(${test})
  add_dependencies(zof_windows_tests ${test})
endforeach()
