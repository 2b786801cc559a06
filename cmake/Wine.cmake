# Wine runs the tests of a cross build. Answers:
#   TOVAREK_WINE_RUN   the command, a list, that runs a Windows program in this build's own Wine
#   TOVAREK_WINE_RUNS  whether that works for the programs of this build; tests are built only then
# and sets CMAKE_CROSSCOMPILING_EMULATOR, so include this file before the targets are made. A test that runs in Wine
# takes the property FIXTURES_REQUIRED wine.

include(${CMAKE_CURRENT_LIST_DIR}/WinePath.cmake)

# - A Wine of its own: nothing of the user's Wine is seen or changed.
# - No offer to install what browsers and .NET programs want, and no debugger for programs that crash: the exit status
#   tells as much.
# - A fixed code page (1252), texts of the United States and a fixed time zone. The locale must be one that the machine
#   has, or file names beyond ASCII get lost.
set(WINE_ENV
  WINEPREFIX=${PROJECT_BINARY_DIR}/wineprefix
  WINEDEBUG=-all
  WINEDLLOVERRIDES=mscoree,mshtml,winedbg.exe=
  LC_ALL=C.UTF-8
  TZ=UTC)
# - Addresses that are the same every time, where the machine lets a program ask for them. Among random ones the heap of
#   Wine's loader lies, once in some five thousand starts, where Wine must put its user data (7FFE0000); Wine then ends
#   with status 1 before it starts the program.
find_program(TOVAREK_WINE wine REQUIRED NO_CMAKE_FIND_ROOT_PATH)
set(WINE_IN env ${WINE_ENV})
execute_process(COMMAND setarch --addr-no-randomize true RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
if(status EQUAL 0)
  list(APPEND WINE_IN setarch --addr-no-randomize)
endif()
set(TOVAREK_WINE_RUN ${WINE_IN} ${TOVAREK_WINE})
set(CMAKE_CROSSCOMPILING_EMULATOR ${TOVAREK_WINE_RUN})

# Runs a program that prints a line. The line counts and not the exit status: a Wine of 64 bits alone "runs" every
# 32-bit program in silence and with success. The output goes to a file, because Wine's background processes would hold a
# pipe open.
function(tovarek_try_wine result)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/try-wine)
  file(WRITE ${folder}/main.cpp "#include <cstdio>\nint main() { std::puts(\"it runs\"); }\n")
  try_compile(compiled ${folder}/build ${folder}/main.cpp
    LINK_OPTIONS -static
    COPY_FILE ${folder}/program.exe
    OUTPUT_VARIABLE output)
  if(NOT compiled)
    message(FATAL_ERROR "A small program cannot be built:\n${output}")
  endif()
  execute_process(
    COMMAND ${WINE_IN} sh -c "exec \"$0\" \"$1\" </dev/null >\"$2\" 2>/dev/null"
            ${TOVAREK_WINE} ${folder}/program.exe ${folder}/output
    TIMEOUT 120)
  file(READ ${folder}/output output)
  string(FIND "${output}" "it runs" place)
  if(place EQUAL -1)
    set(${result} OFF PARENT_SCOPE)
  else()
    set(${result} ON PARENT_SCOPE)
  endif()
endfunction()

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  # A Wine that does not work makes the fixture below fail, and with it all tests.
  set(TOVAREK_WINE_RUNS ON)
elseif(NOT DEFINED TOVAREK_WINE_RUNS)
  tovarek_try_wine(runs)
  set(TOVAREK_WINE_RUNS ${runs} CACHE BOOL "Wine runs the programs of this build")
endif()
if(NOT TOVAREK_WINE_RUNS)
  message(STATUS "Wine runs no 32-bit programs here: no test of them is built "
                 "(set TOVAREK_WINE_RUNS once Wine does)")
  return()
endif()

# The server and the services that it starts live on in the background. Started from here they hold no pipe of ctest,
# which would wait for them after every test.
#
# To have none is what is wanted, so only that counts and not whether there was one to end: "-w" waits for its end.
set(server_down "wineserver -k; exec wineserver -w")
# The folder comes first: the server starts in no other, and in none that has one, as an interrupted run leaves it. Without
# the server that stays, the first program would start one that goes away with the last, between two tests as well.
set(server_up "mkdir -p \"$WINEPREFIX\" && (${server_down}) && wineserver -p")
add_test(NAME wine.up
  COMMAND ${WINE_IN} sh -c "(${server_up} && wineboot -u) </dev/null >/dev/null 2>&1")
add_test(NAME wine.down COMMAND ${WINE_IN} sh -c "${server_down}")
set_tests_properties(wine.up PROPERTIES FIXTURES_SETUP wine TIMEOUT 120)
set_tests_properties(wine.down PROPERTIES FIXTURES_CLEANUP wine TIMEOUT 120)

# The same in a Wine without a folder: nothing is there to end, a server comes and stays, another takes its place, it ends.
string(CONCAT server_test "rm -rf \"$WINEPREFIX\" && (${server_down}) && (${server_up}; ${server_up}) </dev/null >/dev/null 2>&1"
                          " && wineserver -k0 && (${server_down}) && ! wineserver -k0")
add_test(NAME wine.server
  COMMAND ${WINE_IN} env WINEPREFIX=${PROJECT_BINARY_DIR}/wineprefix-of-server sh -c "${server_test}")
set_tests_properties(wine.server PROPERTIES TIMEOUT 120)

# tovarek_wine_gtest(<target> [<arguments>]): the target's GoogleTest cases as one test. A program may also die in
# silence, with any status: it must both say that all passed and end with 0.
function(tovarek_wine_gtest target)
  add_test(NAME ${target}
    COMMAND sh -c "\"$@\"; echo \"ended with status $?\"" sh ${TOVAREK_WINE_RUN} $<TARGET_FILE:${target}> ${ARGN})
  set_tests_properties(${target} PROPERTIES
    FIXTURES_REQUIRED wine
    TIMEOUT 600
    FAIL_REGULAR_EXPRESSION "\\[  FAILED  \\]"
    PASS_REGULAR_EXPRESSION "\\[  PASSED  \\] [1-9].*ended with status 0")
endfunction()
