# The reference. zof_reference writes its pages and all their snippets; a program made of the snippets takes the pictures;
# the target `docs` makes HTML with MkDocs, which nothing else needs. The pictures of the page for newcomers are taken while a
# script follows it, from an installed tree.
set(docs ${PROJECT_SOURCE_DIR}/docs)
set(reference ${PROJECT_BINARY_DIR}/reference)
file(GLOB reference_pages CONFIGURE_DEPENDS ${docs}/*.md ${docs}/types/*.md ${docs}/mkdocs.yml)
file(GLOB_RECURSE reference_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/zof_src/*.h)
file(GLOB reference_types CONFIGURE_DEPENDS RELATIVE ${docs}/types ${docs}/types/*.md)
set(reference_code ${reference}/code/main.c)
foreach(page IN LISTS reference_types)
  string(REPLACE .md .c page ${page})
  list(APPEND reference_code ${reference}/code/${page})
endforeach()
add_custom_command(OUTPUT ${reference}/written.stamp ${reference_code} VERBATIM COMMENT "Pages and snippets of the reference"
  COMMAND zof_reference ${docs} ${PROJECT_SOURCE_DIR}/zof_src ${reference}
  COMMAND ${CMAKE_COMMAND} -E touch ${reference}/written.stamp
  DEPENDS zof_reference ${reference_pages} ${reference_headers})
# The project of the snippets has the gallery's dark theme, and its pictures and clip.
set(gallery ${PROJECT_BINARY_DIR}/examples/gallery/gallery/res)
set(stage ${reference}/panel/res)
add_custom_command(OUTPUT ${reference}/media.stamp VERBATIM
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${gallery}/config/theme/night ${stage}/config/theme/night
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${gallery}/image ${stage}/image
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${gallery}/video ${stage}/video
  COMMAND ${CMAKE_COMMAND} -E make_directory ${stage}/font ${reference}/pages/pictures
  COMMAND ${CMAKE_COMMAND} -E copy ${gallery}/font/gallery.ttf ${stage}/font
  COMMAND ${CMAKE_COMMAND} -E touch ${reference}/media.stamp
  DEPENDS gallery_res)
add_custom_target(reference_res DEPENDS ${reference}/media.stamp)
add_executable(reference_panel ${reference_code})
target_link_libraries(reference_panel PRIVATE zof)
target_compile_options(reference_panel PRIVATE -Wall -Wextra -Wno-unused-parameter -Werror)
add_dependencies(reference_panel reference_res)

find_program(ZOF_MKDOCS mkdocs)
set(html ${PROJECT_BINARY_DIR}/docs/html)
set(mkdocs ${ZOF_MKDOCS} build --strict --config-file ${reference}/mkdocs.yml --site-dir ${html})
if(NOT ZOF_MKDOCS)
  set(mkdocs ${CMAKE_COMMAND} -E echo "There is no mkdocs: run tools/packages docs and configure again" COMMAND false)
endif()
add_custom_target(docs VERBATIM COMMENT "The reference as HTML in docs/html"
  COMMAND ${CMAKE_COMMAND} -E env SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy ZOF_STATE= ZOF_SCRIPT=session
          ZOF_SHOTS=${reference}/pages/pictures ${CMAKE_COMMAND} -E chdir ${reference}/panel $<TARGET_FILE:reference_panel> > ${reference}/panel.log
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${reference}/prefix
  COMMAND ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --component dev --prefix ${reference}/prefix > ${reference}/install.log
  COMMAND ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --component tools --prefix ${reference}/prefix > ${reference}/install.log
  COMMAND ${CMAKE_COMMAND} -E env PATH=${reference}/prefix/bin:$ENV{PATH} CMAKE_PREFIX_PATH=${reference}/prefix
          ${ZOF_PYTHON} ${PROJECT_SOURCE_DIR}/tools/reference/walk.py ${reference}/walk ${reference}/pages/pictures ${docs}/ten_minutes.md
  COMMAND ${CMAKE_COMMAND} -E copy ${docs}/panel.png ${docs}/gallery.png ${docs}/design.png ${reference}/pages
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${docs}/offline ${reference}/offline
  COMMAND ${mkdocs}
  COMMAND ${CMAKE_COMMAND} -DHTML=${html} -P ${PROJECT_SOURCE_DIR}/cmake/search_index.cmake
  DEPENDS reference_panel zof zof_tool zof_player board_sim zof_describe zof_describe_manual zof_player_manual board_sim_manual)
