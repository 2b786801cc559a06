# The portable program, unpacked, in a root that holds nothing but what the archive holds.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)
file(REMOVE_RECURSE ${WORK})
run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -G TXZ -B ${WORK})
file(GLOB archive ${WORK}/*.tar.xz)
file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${WORK})
get_filename_component(root ${archive} NAME)
string(REGEX REPLACE "\\.tar\\.xz$" "" root ${WORK}/${root})

set(ENTER unshare -r chroot ${root})
execute_process(COMMAND ${ENTER} /bin/tovarek --version RESULT_VARIABLE status ERROR_VARIABLE error OUTPUT_QUIET)
if(error MATCHES "unshare")
  message("SKIPPED: this machine lets nobody have a root of his own: ${error}")
  return()
endif()
# It makes what the ordinary program makes, without any catalog's folder.
set(ENV{SOURCE_DATE_EPOCH} 1795254067)
set(example /share/tovarek/examples/fan-coil)
set(catalog /share/tovarek/catalog)
file(MAKE_DIRECTORY ${root}/out ${WORK}/out)
file(RENAME ${root}${catalog} ${WORK}/catalog)
run(${ENTER} /bin/tovarek generate --job ${example}/job.json
    --outputXIFfile /out/fan-coil.xif --typeFilesDirectory /out)
run(${PROGRAM} generate --catalogDir ${WORK}/catalog --job ${root}${example}/job.json
    --outputXIFfile ${WORK}/out/fan-coil.xif --typeFilesDirectory ${WORK}/out)
file(GLOB made RELATIVE ${WORK}/out ${WORK}/out/fan*)
foreach(file IN LISTS made)
  run(${CMAKE_COMMAND} -E compare_files ${WORK}/out/${file} ${root}/out/${file})
endforeach()
# What it leaves to the machine elsewhere it refuses.
file(WRITE ${root}/asian.xml "<?xml version='1.0' encoding='GBK'?><DEVICE/>")
execute_process(COMMAND ${ENTER} /bin/tovarek check --xmlTemplateFile /asian.xml RESULT_VARIABLE status
                OUTPUT_VARIABLE output ERROR_VARIABLE output)
require_match("${output}" "no converter for the encoding")
