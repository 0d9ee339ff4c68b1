# Copies the licence texts of everything in the panel into the folder TO. LIBRARIES: the libraries of a build for another
# system, with their licences, and COMPILER its compiler's packages; empty for this one, of which MEDIA names FFmpeg's packages.
file(MAKE_DIRECTORY ${TO})
configure_file(${LVGL} ${TO}/lvgl.txt COPYONLY)
set(libraries libsdl2-2.0-0 ${MEDIA} libfreetype6 libcjson1)
if(LIBRARIES)
  file(COPY ${LIBRARIES}/licences/ DESTINATION ${TO})
  set(libraries ${COMPILER})
endif()
foreach(package fonts-inter-variable ${libraries} libboost1.74-dev)
  if(EXISTS /usr/share/doc/${package}/copyright)
    configure_file(/usr/share/doc/${package}/copyright ${TO}/${package}.txt COPYONLY)
  endif()
endforeach()
