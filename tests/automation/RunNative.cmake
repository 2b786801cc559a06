# Has the native program write the example at a fixed date, from XML inputs into xml/ and from INI inputs into ini/: what
# the Windows programs are compared with.
set(ENV{SOURCE_DATE_EPOCH} 1795254067)
set(xml)
set(ini --iniTemplateFile examples/fan-coil/template.ini --iniProfileFile examples/fan-coil/profile.ini)
foreach(kind xml ini)
  set(folder ${OUTPUT}/${kind})
  file(REMOVE_RECURSE ${folder})
  file(MAKE_DIRECTORY ${folder})
  execute_process(
    COMMAND ${PROGRAM} generate --job examples/fan-coil/job.json ${${kind}}
            --outputXIFfile ${folder}/fan-coil.xif --typeFilesDirectory ${folder}
    WORKING_DIRECTORY ${SOURCE}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
