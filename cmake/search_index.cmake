# Writes the index of the search as a script, too, which pages may load from a disk.   cmake -DHTML=FOLDER -P search_index.cmake
file(READ ${HTML}/search/search_index.json index)
file(WRITE ${HTML}/search/search_index.js "var __search = {index: Promise.resolve(${index})};\n")
