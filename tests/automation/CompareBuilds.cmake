# The Windows program writes the example at the same date as the native one; every file must have the same bytes. The
# variable WINE_RUN is the command that runs it.
file(REMOVE_RECURSE ${OUTPUT})
file(MAKE_DIRECTORY ${OUTPUT})
set(ENV{SOURCE_DATE_EPOCH} 1795254067)
execute_process(
  COMMAND ${WINE_RUN} ${PROGRAM} generate --job examples/fan-coil/job.json
          --outputXIFfile ${OUTPUT_IN_WINE}\\fan-coil.xif --typeFilesDirectory ${OUTPUT_IN_WINE}
  WORKING_DIRECTORY ${SOURCE}
  COMMAND_ERROR_IS_FATAL ANY)
file(GLOB wanted RELATIVE ${NATIVE} ${NATIVE}/*)
file(GLOB found RELATIVE ${OUTPUT} ${OUTPUT}/*)
list(LENGTH wanted count)
if(count LESS 18 OR NOT "${wanted}" STREQUAL "${found}")
  message(FATAL_ERROR "written here: ${found}\nby the native program: ${wanted}")
endif()
foreach(name IN LISTS wanted)
  file(SHA256 ${NATIVE}/${name} wanted_hash)
  file(SHA256 ${OUTPUT}/${name} found_hash)
  # The list of files tells their folder.
  if(NOT wanted_hash STREQUAL found_hash AND NOT name STREQUAL "files.lst")
    message(FATAL_ERROR "${name} differs from what the native program wrote")
  endif()
endforeach()
message("${count} files have the same bytes")
