# The package's own test passes, and its report tells of every step; on a package that lacks the server it fails and says so.
include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)

tovarek_path_in_wine(selftest ${PACKAGE_FOLDER}/selftest.cmd)
require_run(0 "All is well" ${WINE} cmd /c ${selftest})
file(READ ${PACKAGE_FOLDER}/selftest.txt report)
string(REGEX MATCHALL "== [^\n\r]*" steps "${report}")
string(REGEX MATCHALL ": ok" passed "${report}")
list(LENGTH steps steps)
list(LENGTH passed passed)
require_equal("${steps} ${passed}" "22 22" "Steps of the report and steps that passed")

set(broken ${WORK}/without-files)
file(REMOVE_RECURSE ${broken})
file(COPY ${PACKAGE_FOLDER}/selftest.cmd ${PACKAGE_FOLDER}/register.cmd DESTINATION ${broken})
tovarek_path_in_wine(selftest ${broken}/selftest.cmd)
require_run(1 "registers the server: FAILED.*steps failed" ${WINE} cmd /c ${selftest})
