# Takes the registration back; hosts do not find the server any more.
include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)

tovarek_path_in_wine(unregister ${PACKAGE_FOLDER}/unregister.cmd)
tovarek_path_in_wine(script ${PACKAGE_FOLDER}/examples/automation/generate.vbs)
require_run(0 "^QVTovarek\\.dll is unregistered [^\n]*\n$" ${WINE} cmd /c ${unregister})
require_run(1 "^Error 429 " ${WINE} cscript //nologo ${script} Z:\\)
