# What tests link, read and replace, for the tests of this system and those that are built for Windows.
set(test_libraries zof_board zof_decode zof_view zof_design_text)

# A script draws the animated pictures.
set(ZOF_TEST_MEDIA ${PROJECT_BINARY_DIR}/test-media)
add_custom_command(OUTPUT ${ZOF_TEST_MEDIA}.stamp COMMENT "Pictures for tests" VERBATIM
  COMMAND ${ZOF_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/media/make.py ${ZOF_TEST_MEDIA}
  COMMAND ${CMAKE_COMMAND} -E touch ${ZOF_TEST_MEDIA}.stamp
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/media/make.py)
add_custom_target(test_media DEPENDS ${ZOF_TEST_MEDIA}.stamp)

# A font with Chinese characters for texts and Pinyin, which tests copy into their projects.
find_file(ZOF_CHINESE_FONT wqy-microhei.ttc PATHS /usr/share/fonts/truetype/wqy NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
configure_file(${ZOF_CHINESE_FONT} ${PROJECT_BINARY_DIR}/test-fonts/cn.ttf COPYONLY)

# Functions that a test replaces by its own.
set(wrapped_design_random_test zof_file_finish) # which takes most of the time of an edit
set(wrapped_design_undo_test zof_rename zof_file_put) # a process that is killed at any step, a full disk
set(wrapped_lvgl_patch_test zof_ram_get_img_free) # counts the memory of images, which the desktop build does not
set(wrapped_media_missing_test zof_host_library_open) # a host without FFmpeg
set(wrapped_sound_device_test SDL_OpenAudioDevice SDL_CloseAudioDevice SDL_Delay) # a host with a single device
