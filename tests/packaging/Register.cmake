# Registers the unpacked server, after a try that must fail: away from the DLL.
include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)

file(COPY ${PACKAGE_FOLDER}/register.cmd DESTINATION ${WORK}/without-server)
tovarek_path_in_wine(lonely ${WORK}/without-server/register.cmd)
tovarek_path_in_wine(register ${PACKAGE_FOLDER}/register.cmd)
require_run(1 "^QVTovarek\\.dll could not be registered [^\n]*\n$" ${WINE} cmd /c ${lonely})
require_run(0 "^QVTovarek\\.dll is registered [^\n]*\n$" ${WINE} cmd /c ${register})
