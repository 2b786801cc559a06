# Takes the registration back; hosts do not find the server any more.
include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)

to_windows_path(unregister ${PACKAGE_FOLDER}/unregister.cmd)
to_windows_path(script ${PACKAGE_FOLDER}/examples/automation/generate.vbs)
require_run(0 "^QVTovarek\\.dll is unregistered [^\n]*\n$" ${WINE} cmd /c ${unregister})
require_run(1 "^Error 429 " ${WINE} cscript //nologo ${script} Z:\\)
