# Installs the runtime for other projects, and the panel with its project folder.
include(CMakePackageConfigHelpers)

set(zof_headers ${CMAKE_INSTALL_INCLUDEDIR}/zof)
install(TARGETS zof zof_lvgl EXPORT zofTargets)
install(DIRECTORY zof_src/ DESTINATION ${zof_headers} FILES_MATCHING PATTERN "*.h" PATTERN "port" EXCLUDE)
install(DIRECTORY ${lvgl_tree}/ DESTINATION ${zof_headers}/lvgl FILES_MATCHING PATTERN "*.h")
install(FILES ${lvgl_room}/lv_conf.h DESTINATION ${zof_headers}/lvgl)

install(DIRECTORY ${ZOF_BENCH_STAGE}/res ${ZOF_BENCH_STAGE}/licences DESTINATION ${CMAKE_INSTALL_DATADIR}/zof_bench)
install(TARGETS zof_bench board_sim zof_player)
install(TARGETS zof_tool EXPORT zofTargets)
install(FILES ${PROJECT_BINARY_DIR}/tools/zof.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_BINARY_DIR}/tools/zof.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zof)

install(DIRECTORY ${PROJECT_BINARY_DIR}/tools/schema DESTINATION ${CMAKE_INSTALL_DATADIR}/zof)
install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zof OPTIONAL) # if built: the target docs

install(EXPORT zofTargets NAMESPACE zof:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zof)
file(WRITE ${PROJECT_BINARY_DIR}/zofConfig.cmake [=[
include(CMakeFindDependencyMacro)
find_dependency(PkgConfig)
find_dependency(Threads)
find_dependency(Freetype)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2)
pkg_check_modules(CJSON REQUIRED IMPORTED_TARGET libcjson)
include(${CMAKE_CURRENT_LIST_DIR}/zofTargets.cmake)
]=])
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zofConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zofConfig.cmake ${PROJECT_BINARY_DIR}/zofConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zof)
