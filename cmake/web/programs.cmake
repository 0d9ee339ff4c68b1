# The bench panel as a page: the program, with the virtual box as a thread, and the panel's project packed beside it.
add_executable(bench_page ${PROJECT_SOURCE_DIR}/tools/web/bench_page.cpp)
target_link_libraries(bench_page PRIVATE zof_bench_app zof_board)
target_include_directories(bench_page PRIVATE ${PROJECT_SOURCE_DIR}/tools/web)
add_dependencies(bench_page bench_res)
zof_warnings(bench_page)
set(page_dir ${PROJECT_BINARY_DIR}/page)
set_target_properties(bench_page PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${page_dir} OUTPUT_NAME panel SUFFIX .js)
# main is a worker, so that it may block. The pool is for main, the line's reader, the virtual box, and what plays sounds.
target_link_options(bench_page PRIVATE -sPROXY_TO_PTHREAD -sPTHREAD_POOL_SIZE=6 -sINITIAL_MEMORY=134217728 -sEXIT_RUNTIME=0
                    -sENVIRONMENT=web,worker -sEXPORTED_RUNTIME_METHODS=FS,ENV,ccall,addRunDependency,removeRunDependency
                    -sEXPORTED_FUNCTIONS=_main,_malloc,_free -sFORCE_FILESYSTEM=1 -lidbfs.js
                    "SHELL:--preload-file ${ZOF_BENCH_STAGE}/res@/res" "SHELL:--exclude-file *.ignore")
set_target_properties(bench_page PROPERTIES LINK_DEPENDS "${PROJECT_BINARY_DIR}/views.stamp;${fonts};${pictures}")
file(GLOB page_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/web/page/*)
add_custom_target(page ALL DEPENDS bench_page ${page_files} COMMAND ${CMAKE_COMMAND} -E copy_if_different ${page_files} ${page_dir}
                  COMMAND ${CMAKE_COMMAND} -E copy_directory ${ZOF_BENCH_STAGE}/licences ${page_dir}/licences
                  COMMAND ${ZOF_PYTHON} ${PROJECT_SOURCE_DIR}/cmake/windows/icon.py ${ZOF_BENCH_STAGE}/res/image/logo.png ${page_dir}/icon.png VERBATIM)
