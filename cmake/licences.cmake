# Copies the licence texts of everything in the panel into the folder TO. LIBRARIES: the libraries of a build for another
# system, with their licences; empty for those of this one, of which MEDIA names FFmpeg's packages.
file(MAKE_DIRECTORY ${TO})
configure_file(${LVGL} ${TO}/lvgl.txt COPYONLY)
set(libraries libsdl2-2.0-0 ${MEDIA} libfreetype6 libcjson1)
if(LIBRARIES)
  file(COPY ${LIBRARIES}/licences/ DESTINATION ${TO})
  set(libraries mingw-w64-common gcc-mingw-w64-base) # of the compiler
endif()
foreach(package fonts-inter-variable ${libraries} libboost1.74-dev)
  if(EXISTS /usr/share/doc/${package}/copyright)
    configure_file(/usr/share/doc/${package}/copyright ${TO}/${package}.txt COPYONLY)
  endif()
endforeach()
