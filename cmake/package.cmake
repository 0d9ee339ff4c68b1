# Packages for Debian and archives: zof-dev, zof-tools and zof-bench, with the files that `cmake --install` installs.
#   cpack -G DEB        cpack -G TGZ
set(zof_maintainer "zof maintainers <maintainers@zof.invalid>")

# What Debian wants in share/doc of each package: who may copy what is in it, and its changes.
set(zof_copied_dev lvgl)
set(zof_copied_tools lvgl libcli11-dev libboost1.74-dev)
set(zof_copied_bench lvgl libboost1.74-dev fonts-inter-variable)
foreach(component dev tools bench)
  set(package zof-${component})
  set(made ${PROJECT_BINARY_DIR}/package/${component})
  set(copied "")
  foreach(source IN LISTS zof_copied_${component})
    set(file /usr/share/doc/${source}/copyright)
    if(source STREQUAL lvgl)
      set(file ${lvgl_tree}/LICENCE.txt)
    endif()
    if(EXISTS ${file})
      file(READ ${file} text)
      string(APPEND copied "\n---- ${source} ----\n\n${text}")
    endif()
  endforeach()
  configure_file(cmake/package/copyright.in ${made}/copyright @ONLY)
  configure_file(cmake/package/changelog.in ${made}/changelog @ONLY)
  execute_process(COMMAND ${ZOF_GZIP} -9nf ${made}/changelog COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${made}/copyright ${made}/changelog.gz DESTINATION ${zof_doc}/${package} COMPONENT ${component})
  set(overrides cmake/package/${package}.lintian-overrides)
  if(EXISTS ${PROJECT_SOURCE_DIR}/${overrides})
    install(FILES ${overrides} DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ${package} COMPONENT ${component})
  endif()
endforeach()

set(CPACK_PACKAGE_NAME zof)
set(CPACK_PACKAGE_CONTACT ${zof_maintainer})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL dev tools bench)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_COMPONENT_DEV_DESCRIPTION "Touch panels from a folder of files, for programs
The runtime as a library with its headers, packages for CMake and pkg-
config, schemas for editors, documents, examples, and the libraries for
hosts in C and Python.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME zof-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "g++, libsdl2-dev, libfreetype-dev, libcjson-dev")
set(CPACK_DEBIAN_DEV_PACKAGE_RECOMMENDS "zof-tools, pkg-config, cmake (>= 3.25)")
if(NOT ZOF_MEDIA)
  string(APPEND CPACK_DEBIAN_DEV_PACKAGE_DEPENDS ", libturbojpeg0-dev")
endif()

set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Touch panels from a folder of files, tools
The tool zof, which makes, checks, shows and reviews project folders, the
player that runs them without a program, and a virtual bench box.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME zof-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)

set(CPACK_COMPONENT_BENCH_DESCRIPTION "Front panel of a USB Power Delivery bench box
Shows and sets volts, amperes, watts and watt-hours of the box at the far
end of a serial line, records them, and lets programs measure by SCPI.")
set(CPACK_DEBIAN_BENCH_PACKAGE_NAME zof-bench)
set(CPACK_DEBIAN_BENCH_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_BENCH_PACKAGE_SHLIBDEPS ON)
if(ZOF_DEBIAN_RECOMMENDS)
  set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "${zof_recommends}, python3-fonttools")
  set(CPACK_DEBIAN_BENCH_PACKAGE_RECOMMENDS "${zof_recommends}")
endif()
include(CPack)
