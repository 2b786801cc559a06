# What the steps of the package's test share. They get
#   WORK      a folder of their own
#   PACKAGE   the name of the package
#   WINE      the command, a list, that runs a Windows program

# Users have such folders.
set(UNPACKED "${WORK}/Gerät 1")
set(PACKAGE_FOLDER "${UNPACKED}/${PACKAGE}")
# What the program makes of the example; the hosts of the server must make the same.
set(REFERENCE_FOLDER ${WORK}/program)

include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/WinePath.cmake)

# require_run(<exit status> <expression> <command>...): runs a command, which must end with that status and print
# a match. A script that fails under Wine may end in silence and with 0, so the output counts too.
function(require_run status expression)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  string(REPLACE "\r" "" output "${output}${errors}")
  message("${output}")
  if(NOT result STREQUAL status OR NOT output MATCHES "${expression}")
    message(FATAL_ERROR "${ARGN}\nended with ${result}, expected ${status} and \"${expression}\"")
  endif()
endfunction()

function(require_equal actual expected what)
  if(NOT actual STREQUAL expected)
    message(FATAL_ERROR "${what}:\n  ${actual}\nexpected:\n  ${expected}")
  endif()
endfunction()
