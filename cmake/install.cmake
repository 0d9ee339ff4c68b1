# Installs the runtime for other projects, the tools and the panel. cmake/package.cmake makes a package of each component:
# `dev`, `tools` and `bench`.
include(CMakePackageConfigHelpers)

set(zof_headers ${CMAKE_INSTALL_INCLUDEDIR}/zof)
set(zof_doc ${CMAKE_INSTALL_DATADIR}/doc)
install(TARGETS zof zof_lvgl EXPORT zofTargets COMPONENT dev)
install(DIRECTORY zof_src/ DESTINATION ${zof_headers} COMPONENT dev FILES_MATCHING PATTERN "*.h" PATTERN "port" EXCLUDE)
install(DIRECTORY ${lvgl_tree}/ DESTINATION ${zof_headers}/lvgl COMPONENT dev FILES_MATCHING PATTERN "*.h")
install(FILES ${lvgl_room}/lv_conf.h DESTINATION ${zof_headers}/lvgl COMPONENT dev)

# What programs link, for CMake and for pkg-config. The libraries are static, so everything is needed at once, and they call
# each other.
set(zof_cmake ${CMAKE_INSTALL_LIBDIR}/cmake/zof)
set(zof_requires freetype2 sdl2 libcjson)
set(zof_config_media "")
if(NOT ZOF_MEDIA)
  list(APPEND zof_requires libturbojpeg)
  set(zof_config_media "pkg_check_modules(TURBOJPEG REQUIRED IMPORTED_TARGET libturbojpeg)")
endif()
list(JOIN zof_requires " " zof_requires)
list(JOIN ZOF_DEBIAN_RECOMMENDS ", " zof_recommends)
install(EXPORT zofTargets NAMESPACE zof:: DESTINATION ${zof_cmake} COMPONENT dev)
configure_package_config_file(cmake/zofConfig.cmake.in ${PROJECT_BINARY_DIR}/zofConfig.cmake INSTALL_DESTINATION ${zof_cmake})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zofConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zofConfig.cmake ${PROJECT_BINARY_DIR}/zofConfigVersion.cmake cmake/native_tool.cmake
        DESTINATION ${zof_cmake} COMPONENT dev)
file(RELATIVE_PATH zof_pc_prefix /usr/${CMAKE_INSTALL_LIBDIR}/pkgconfig /usr)
string(REGEX REPLACE "/$" "" zof_pc_prefix ${zof_pc_prefix})
configure_file(cmake/zof.pc.in zof.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zof.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
if(ZOF_RUNTIME_ONLY)
  return()
endif()

install(DIRECTORY ${PROJECT_BINARY_DIR}/tools/schema DESTINATION ${CMAKE_INSTALL_DATADIR}/zof COMPONENT dev)
install(DIRECTORY clients DESTINATION ${CMAKE_INSTALL_DATADIR}/zof COMPONENT dev
        FILES_MATCHING PATTERN "*" PATTERN "__pycache__" EXCLUDE PATTERN "*.egg-info" EXCLUDE)
install(DIRECTORY docs/ DESTINATION ${zof_doc}/zof-dev COMPONENT dev PATTERN "offline" EXCLUDE PATTERN "mkdocs.yml" EXCLUDE)
install(DIRECTORY examples DESTINATION ${zof_doc}/zof-dev COMPONENT dev PATTERN "__pycache__" EXCLUDE)
install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html DESTINATION ${zof_doc}/zof-dev COMPONENT dev OPTIONAL) # if built: the target docs

install(TARGETS zof_tool board_sim zof_player COMPONENT tools)
install(FILES ${PROJECT_BINARY_DIR}/tools/zof.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zof
        COMPONENT tools)
get_property(zof_design_built GLOBAL PROPERTY ZOF_DESIGN_BUILT)
if(zof_design_built) # what is in the page
  install(FILES ${PROJECT_BINARY_DIR}/tools/design_page/licences.txt DESTINATION ${zof_doc}/zof-tools RENAME copyright.page
          COMPONENT tools)
endif()

install(TARGETS zof_bench COMPONENT bench)
install(DIRECTORY ${ZOF_BENCH_STAGE}/res ${ZOF_BENCH_STAGE}/licences DESTINATION ${CMAKE_INSTALL_DATADIR}/zof_bench COMPONENT bench)
install(FILES apps/package/zof_bench.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT bench)
install(FILES ${ZOF_BENCH_STAGE}/res/image/logo_small.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/48x48/apps
        RENAME zof_bench.png COMPONENT bench)

# The panel as a service of a device without a desktop, from the templates of every application. The parameters are the
# names in them.
function(zof_install_service PROJECT_NAME PROJECT_DESCRIPTION)
  foreach(file IN ITEMS service rules)
    configure_file(examples/blank/package/program.${file}.in ${PROJECT_BINARY_DIR}/service/${PROJECT_NAME}.${file} @ONLY)
  endforeach()
  install(FILES ${PROJECT_BINARY_DIR}/service/${PROJECT_NAME}.service DESTINATION lib/systemd/system COMPONENT bench)
  install(FILES ${PROJECT_BINARY_DIR}/service/${PROJECT_NAME}.rules DESTINATION lib/udev/rules.d
          RENAME 70-${PROJECT_NAME}.rules COMPONENT bench)
endfunction()
zof_install_service(zof_bench "Bench panel")

find_program(ZOF_GZIP gzip REQUIRED)
if(NOT ZOF_FUZZ)
  include(cmake/manual.cmake)
endif()
include(cmake/package.cmake)
