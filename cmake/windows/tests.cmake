# Tests that run as Windows programs: all of tests/unit and tests/screen that need nothing of another system.
set(tests ${PROJECT_SOURCE_DIR}/tests)
include(${tests}/files.cmake)
add_library(zof_test_main OBJECT ${tests}/zof_test_main.cpp)
target_link_libraries(zof_test_main PUBLIC doctest::doctest)
file(GLOB sources RELATIVE ${tests} CONFIGURE_DEPENDS ${tests}/unit/*_test.cpp ${tests}/screen/*_test.cpp ${tests}/windows/*_test.cpp)
list(APPEND sources serial/view_watch_test.cpp serial/lint_test.cpp)
list(FILTER sources EXCLUDE REGEX "/(host_null|media_missing)_test") # of other host layers
list(FILTER sources EXCLUDE REGEX "/(path|record|out_of_memory|update|update_fuzz|zof_host)_test") # pipes, sockets, forks, limits
list(FILTER sources EXCLUDE REGEX "/(check|sound|sound_device|video)_test") # make media with encoders, which are not built
add_custom_target(zof_windows_tests)
foreach(source IN LISTS sources)
  get_filename_component(test ${source} NAME_WE)
  add_executable(${test} EXCLUDE_FROM_ALL ${tests}/${source})
  target_include_directories(${test} PRIVATE ${tests} ${tests}/unit ${tests}/screen ${tests}/serial)
  target_compile_definitions(${test} PRIVATE ZOF_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ZOF_BUILD_DIR="${PROJECT_BINARY_DIR}"
                             ZOF_PANEL_DIR="${PROJECT_BINARY_DIR}/test-panel" ZOF_MEDIA_DIR="${ZOF_TEST_MEDIA}"
                             ZOF_GALLERY_DIR="${PROJECT_BINARY_DIR}/examples/gallery/gallery")
  # Without optimisation; vasprintf and the like; and what the tests call of POSIX.
  target_compile_options(${test} PRIVATE -O0 -D_GNU_SOURCE -include ${tests}/windows/posix.h)
  target_link_libraries(${test} PRIVATE zof_bench_app zof_board zof_decode zof_view zof_test_main zof_entry PkgConfig::SDL2 doctest::doctest)
  foreach(call IN LISTS wrapped_${test})
    target_link_options(${test} PRIVATE -Wl,--wrap=${call})
  endforeach()
  set_target_properties(${test} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  zof_warnings(${test})
  add_dependencies(zof_windows_tests ${test})
endforeach()
add_dependencies(zof_windows_tests bench_test_res gallery_res test_media)
