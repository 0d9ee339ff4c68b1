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

# Tests that run as Windows programs.
add_library(zof_test_main OBJECT ${PROJECT_SOURCE_DIR}/tests/zof_test_main.cpp)
target_link_libraries(zof_test_main PUBLIC doctest::doctest)
add_custom_target(zof_windows_tests)
set(tests ${PROJECT_SOURCE_DIR}/tests)
file(GLOB zof_wt RELATIVE ${tests} ${tests}/unit/*_test.cpp ${tests}/screen/*_test.cpp)
foreach(source ${zof_wt} serial/view_watch_test.cpp serial/lint_test.cpp serial/player_test.cpp windows/win32_test.cpp)
  get_filename_component(test ${source} NAME_WE)
  add_executable(${test} EXCLUDE_FROM_ALL ${tests}/${source})
  target_include_directories(${test} PRIVATE ${tests} ${tests}/unit ${tests}/screen ${tests}/serial)
  target_compile_definitions(${test} PRIVATE ZOF_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ZOF_BUILD_DIR="${PROJECT_BINARY_DIR}"
                             ZOF_PANEL_DIR="${ZOF_BENCH_STAGE}" ZOF_MEDIA_DIR="${ZOF_NATIVE_BUILD}/test-media")
  target_compile_options(${test} PRIVATE -O0 -D_GNU_SOURCE -include ${tests}/windows/posix.h)
  target_link_libraries(${test} PRIVATE zof_bench_app zof_board zof_decode zof_view zof_test_main zof_entry PkgConfig::SDL2 doctest::doctest)
  set_target_properties(${test} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  zof_warnings(${test})
  add_dependencies(zof_windows_tests ${test})
endforeach()
