# Runs the program on files whose names no 8-bit code page holds together: what is read, what is written and what is
# said of it must have these very names.
set(profile "Προφίλ.ini")
set(template "šablona 模板.ini")
set(output "θερμοκρασία %20 温度 😀.xif")
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
configure_file(${EXAMPLE}/profile.ini "${WORK}/${profile}" COPYONLY)
configure_file(${EXAMPLE}/template.ini "${WORK}/${template}" COPYONLY)
file(COPY ${CATALOG} DESTINATION ${WORK})

# run(<status> <text> <arguments>): the program must end with the status and say the text.
function(run wanted said)
  execute_process(COMMAND ${RUN} ${PROGRAM} ${ARGN} WORKING_DIRECTORY ${WORK}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
  string(FIND "${output}${error}" "${said}" place)
  if(NOT status STREQUAL wanted OR place EQUAL -1)
    message(FATAL_ERROR "${ARGN}\nended with ${status}, wanted is ${wanted} and '${said}':\n${output}${error}")
  endif()
endfunction()

set(generate generate --catalogDir catalog --mustGenerateTypes false --iniTemplateFile "${template}")
run(0 "wrote ${output} (" ${generate} --iniProfileFile "${profile}" --outputXIFfile "${output}")
file(GLOB written RELATIVE ${WORK} ${WORK}/*.xif)
if(NOT written STREQUAL output)
  message(FATAL_ERROR "'${output}' was to be written, there is '${written}'")
endif()
file(STRINGS "${WORK}/${output}" first LIMIT_COUNT 1)
if(NOT first MATCHES "XIF Version 4.0")
  message(FATAL_ERROR "'${output}' is no XIF file: ${first}")
endif()

run(1 "λείπει.ini" ${generate} --iniProfileFile "λείπει.ini" --outputXIFfile "no.xif")
run(1 "error 75" ${generate} --iniProfileFile "${profile}" --outputXIFfile catalog)
run(2 "--outputXIFfile" generate --outputXIF "${output}")
run(2 "" no-such-command)
run(0 "tovarek 1." --version)

# A program that came without its catalog says where it looked and what helps.
file(COPY ${PROGRAM} DESTINATION ${WORK}/alone)
get_filename_component(name ${PROGRAM} NAME)
set(PROGRAM ${WORK}/alone/${name})
run(1 "name the folder of a catalog with --catalogDir" catalog list)
run(1 "name the folder of a catalog with --catalogDir" generate --iniProfileFile "${profile}"
    --iniTemplateFile "${template}" --mustGenerateTypes false --outputXIFfile no.xif)
