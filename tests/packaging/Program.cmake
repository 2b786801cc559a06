# The unpacked program finds its catalog and makes the example's files.
include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)

file(REMOVE_RECURSE ${REFERENCE_FOLDER})
file(MAKE_DIRECTORY ${REFERENCE_FOLDER})
tovarek_path_in_wine(inputs "${PACKAGE_FOLDER}/examples/fan-coil")
tovarek_path_in_wine(output ${REFERENCE_FOLDER})
require_run(0 "wrote .*fan-coil\\.xif" ${WINE} ${PACKAGE_FOLDER}/tovarek.exe generate
  --iniProfileFile ${inputs}\\profile.ini
  --iniTemplateFile ${inputs}\\template.ini
  --outputXIFfile ${output}\\fan-coil.xif
  --typeFilesXMLFormat ${inputs}\\format.xml
  --userTypeFilePath ${inputs}
  --typeFilesDirectory ${output}
  --typeFilesBaseName fancoil
  --creator "Example Climate Works")
