# Runs one of the examples, which must make the files that the program makes. EXAMPLE is the name of its file.
include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)

set(folder ${PACKAGE_FOLDER}/examples/automation)
if(EXAMPLE MATCHES "\\.cpp$")
  # The command that its README names.
  require_run(0 "" ${COMPILER} -std=c++17 -Wall -Wextra -Werror -municode -static -I${PACKAGE_FOLDER}/include
    ${folder}/${EXAMPLE} -o ${folder}/generate.exe -lole32 -loleaut32 -luuid)
  set(host ${folder}/generate.exe)
else()
  tovarek_path_in_wine(script ${folder}/${EXAMPLE})
  set(host cscript //nologo ${script})
endif()

set(named "${WORK}/named output of ${EXAMPLE}")
set(current "${WORK}/current folder of ${EXAMPLE}")
file(REMOVE_RECURSE ${named} ${current})
file(MAKE_DIRECTORY ${named} ${current})
tovarek_path_in_wine(argument ${named})
set(done "^Done: [^\n]*\n$")
require_run(0 "${done}" ${WINE} ${host} ${argument})
require_run(0 "${done}" ${WINE} ${host} WORKING_DIRECTORY ${current})

file(GLOB expected RELATIVE ${REFERENCE_FOLDER} ${REFERENCE_FOLDER}/*)
foreach(output IN ITEMS ${named} ${current})
  file(GLOB files RELATIVE ${output} ${output}/*)
  require_equal("${files}" "${expected}" "Files in ${output}")
endforeach()

# They were not made in the same second, so dates may differ.
list(REMOVE_ITEM files files.lst)
foreach(file IN LISTS files)
  tovarek_path_in_wine(reference ${REFERENCE_FOLDER}/${file})
  tovarek_path_in_wine(made ${named}/${file})
  require_run(0 "\"same\": *true" ${WINE} ${PACKAGE_FOLDER}/tovarek.exe diff --format json ${reference} ${made})
endforeach()
