cmake_policy(SET CMP0057 NEW)
# Fails when a file of the room ROOM (a folder under ROOT) includes a header of a room that is neither itself nor in
# the comma-separated list ALLOWED: includes go downwards only.
string(REPLACE "," ";" allowed "${ALLOWED}")
file(GLOB files "${ROOT}/${ROOM}/*.h" "${ROOT}/${ROOM}/*.cpp" "${ROOT}/${ROOM}/*.inc")
foreach(file IN LISTS files)
  file(STRINGS "${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]+\"")
  foreach(line IN LISTS includes)
    string(REGEX REPLACE ".*\"(.*)/[^/]*\".*" "\\1" room "${line}")
    if(NOT room STREQUAL ROOM AND NOT room IN_LIST allowed)
      message(FATAL_ERROR "${file}: '${line}' reaches into the room '${room}'; ${ROOM} may include ${allowed} only.")
    endif()
  endforeach()
endforeach()
