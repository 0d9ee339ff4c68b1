# The panel's project folder, staged in the build tree: view and language files from the layout in res/make, fonts
# from Debian's family, pictures drawn by a script; and headers for its code: the ids of its controls, its colours and
# texts. A second folder is staged for tests, with a version and build time that never change.
find_program(ZOF_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED) # Debian's own, which finds Debian's modules

string(TIMESTAMP ZOF_BENCH_TIME "%Y-%m-%d %H:%M" UTC)
set(ZOF_BENCH_STAGE ${PROJECT_BINARY_DIR}/panel)
set(ZOF_BENCH_IDS_DIR ${PROJECT_BINARY_DIR}/ids)
set(res_make ${PROJECT_SOURCE_DIR}/res/make)
set(res_test ${PROJECT_BINARY_DIR}/test-panel)
file(GLOB res_layout CONFIGURE_DEPENDS ${res_make}/panel.py ${res_make}/layout.py ${res_make}/page_*.py)

set(fonts bench-num.ttf bench-rail.ttf bench-text.ttf bench-bold.ttf bench-num-112.bin bench-num-56.bin bench-num-36.bin bench-num-26.bin)
set(pictures dial.png mark.png set_now.png lock.png lock_grey.png logo.png logo_small.png)
list(TRANSFORM fonts PREPEND ${ZOF_BENCH_STAGE}/res/font/)
list(TRANSFORM pictures PREPEND ${ZOF_BENCH_STAGE}/res/image/)

add_custom_command(OUTPUT ${fonts} COMMENT "Fonts of the panel" VERBATIM
  COMMAND ${CMAKE_COMMAND} -E make_directory ${ZOF_BENCH_STAGE}/res/font
  COMMAND ${ZOF_PYTHON} ${res_make}/fonts.py ${ZOF_BENCH_STAGE}/res/font > ${PROJECT_BINARY_DIR}/fonts.log
  DEPENDS ${res_make}/fonts.py)
add_custom_command(OUTPUT ${pictures} COMMENT "Pictures of the panel" VERBATIM
  COMMAND ${ZOF_PYTHON} ${res_make}/art.py ${ZOF_BENCH_STAGE}/res/font ${ZOF_BENCH_STAGE}/res/image
  DEPENDS ${res_make}/art.py ${res_make}/layout.py ${fonts})

# One stamp per folder of view files; the one for the panel has the time of the last configuration.
function(res_views stamp folder version time)
  file(WRITE ${stamp}.args.new "${version} ${time}\n")
  file(COPY_FILE ${stamp}.args.new ${stamp}.args ONLY_IF_DIFFERENT)
  add_custom_command(OUTPUT ${stamp} COMMENT "Views of the panel in ${folder}" VERBATIM
    COMMAND ${ZOF_PYTHON} ${res_make}/views.py ${folder} ${version} ${time}
    COMMAND ${CMAKE_COMMAND} -E copy ${res_make}/zof-check.ignore ${folder}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${res_make}/views.py ${res_make}/zof-check.ignore ${res_layout} ${stamp}.args)
endfunction()
res_views(${PROJECT_BINARY_DIR}/views.stamp ${ZOF_BENCH_STAGE}/res ${PROJECT_VERSION} "${ZOF_BENCH_TIME}")
res_views(${PROJECT_BINARY_DIR}/test-views.stamp ${res_test}/res 1.1.0 "2026-11-22")

add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/test-res.stamp VERBATIM
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${ZOF_BENCH_STAGE}/res/font ${res_test}/res/font
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${ZOF_BENCH_STAGE}/res/image ${res_test}/res/image
  COMMAND ${CMAKE_COMMAND} -E touch ${PROJECT_BINARY_DIR}/test-res.stamp
  DEPENDS ${fonts} ${pictures})

# The licences that the About page refers to: of code compiled in, and of libraries and fonts.
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/licences.stamp COMMENT "Licences" VERBATIM
  COMMAND ${CMAKE_COMMAND} -DTO=${ZOF_BENCH_STAGE}/licences -DLVGL=${PROJECT_BINARY_DIR}/lvgl/LICENCE.txt
          -DLIBRARIES=${ZOF_LIBRARIES} "-DCOMPILER=${ZOF_COMPILER_PACKAGES}" "-DMEDIA=${ZOF_DEBIAN_RECOMMENDS}" -P ${PROJECT_SOURCE_DIR}/cmake/licences.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${PROJECT_BINARY_DIR}/licences.stamp
  DEPENDS ${PROJECT_SOURCE_DIR}/cmake/licences.cmake)

add_custom_target(bench_res ALL DEPENDS ${fonts} ${pictures} ${PROJECT_BINARY_DIR}/views.stamp
                                        ${PROJECT_BINARY_DIR}/licences.stamp)
add_custom_target(bench_test_res DEPENDS ${PROJECT_BINARY_DIR}/test-views.stamp ${PROJECT_BINARY_DIR}/test-res.stamp)

add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/ids.stamp VERBATIM
  BYPRODUCTS ${ZOF_BENCH_IDS_DIR}/bench_ids.h ${ZOF_BENCH_IDS_DIR}/bench_look.h
  COMMAND ${CMAKE_COMMAND} -E make_directory ${ZOF_BENCH_IDS_DIR}
  COMMAND zof::zof_tool ids ${ZOF_BENCH_STAGE}/res ${ZOF_BENCH_IDS_DIR}/bench_ids.h
  COMMAND ${ZOF_PYTHON} ${res_make}/look.py ${ZOF_BENCH_IDS_DIR}/bench_look.h
  COMMAND ${CMAKE_COMMAND} -E touch ${PROJECT_BINARY_DIR}/ids.stamp
  DEPENDS zof::zof_tool ${PROJECT_BINARY_DIR}/views.stamp ${res_make}/look.py ${res_layout})
add_custom_target(bench_ids DEPENDS ${PROJECT_BINARY_DIR}/ids.stamp)
