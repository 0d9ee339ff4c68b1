# Copies the licence texts of everything in the panel into the folder TO.
file(MAKE_DIRECTORY ${TO})
configure_file(${LVGL} ${TO}/lvgl.txt COPYONLY)
foreach(package fonts-inter-variable libsdl2-2.0-0 libavcodec59 libavformat59 libswscale6 libswresample4
        libfreetype6 libcjson1 libboost1.74-dev)
  if(EXISTS /usr/share/doc/${package}/copyright)
    configure_file(/usr/share/doc/${package}/copyright ${TO}/${package}.txt COPYONLY)
  endif()
endforeach()
