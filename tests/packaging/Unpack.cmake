# Makes the ZIP file, unpacks it and looks at what a user finds.
include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)

file(REMOVE_RECURSE ${WORK})
require_run(0 "" ${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${WORK}/zip)
file(ARCHIVE_EXTRACT INPUT ${WORK}/zip/${PACKAGE}.zip DESTINATION ${UNPACKED})

# ---- the files, no more and no less ----
set(expected
  LICENSE-libxml2.txt LICENSE.txt QVTovarek.dll QVTovarek.tlb README.txt register.cmd selftest.cmd selftest.vbs
  tovarek.exe unregister.cmd
  catalog/ldrf.cat catalog/standard.enu catalog/standard.fmt catalog/standard.fpt catalog/standard.typ
  include/QVTovarek_h.h include/QVTovarek_i.c)
foreach(name IN ITEMS README.md generate.cpp generate.js generate.ps1 generate.vbs)
  list(APPEND expected examples/automation/${name})
endforeach()
foreach(name IN ITEMS format.xml job.json profile.ini profile.xif profile.xml template.ini template.xml user-types.xml)
  list(APPEND expected examples/fan-coil/${name})
endforeach()
list(SORT expected)
file(GLOB_RECURSE files RELATIVE ${PACKAGE_FOLDER} ${PACKAGE_FOLDER}/*)
list(SORT files)
require_equal("${files}" "${expected}" "Files of the package")

# ---- texts: line ends of Windows, and nothing that depends on a code page ----
list(FILTER files INCLUDE REGEX "\\.(txt|cmd|vbs|js|ps1|cpp|md)$")
foreach(file IN LISTS files)
  # Read as text, the line ends would not be seen.
  file(READ ${PACKAGE_FOLDER}/${file} bytes HEX)
  string(REGEX REPLACE "(..)" "\\1 " bytes "${bytes}")
  string(REPLACE "0d 0a " "" bytes "${bytes}")
  if(bytes MATCHES "0[da] |[89a-f][0-9a-f] ")
    message(FATAL_ERROR "${file} holds a lone line end or a character beyond ASCII")
  endif()
endforeach()

# ---- the server: its entry points, no library beside those of every system, and no debug information ----
execute_process(COMMAND ${OBJDUMP} -p -h ${PACKAGE_FOLDER}/QVTovarek.dll OUTPUT_VARIABLE dump)
string(REGEX MATCHALL "DLL Name: [^\n]*" imports "${dump}")
list(TRANSFORM imports REPLACE "DLL Name: " "")
list(SORT imports)
require_equal("${imports}" "ADVAPI32.dll;KERNEL32.dll;OLEAUT32.dll;msvcrt.dll;ole32.dll" "Libraries of QVTovarek.dll")
if(dump MATCHES "\\.debug_")
  message(FATAL_ERROR "QVTovarek.dll holds debug information")
endif()
string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table.*" dump "${dump}")
string(REGEX MATCHALL "Dll[^\n]*" exports "${dump}")
require_equal("${exports}" "DllCanUnloadNow;DllGetClassObject;DllRegisterServer;DllUnregisterServer"
              "Exports of QVTovarek.dll")

# ---- both programs: addresses at random, data that is not run ----
set(characteristics DYNAMIC_BASE NX_COMPAT)
if(PACKAGE MATCHES "64$")
  list(APPEND characteristics HIGH_ENTROPY_VA)
endif()
foreach(program IN ITEMS QVTovarek.dll tovarek.exe)
  execute_process(COMMAND ${OBJDUMP} -p -h ${PACKAGE_FOLDER}/${program} OUTPUT_VARIABLE dump)
  foreach(sign IN LISTS characteristics ITEMS "\\.reloc ")
    if(NOT dump MATCHES "${sign}")
      message(FATAL_ERROR "${program} is not hardened: no ${sign}")
    endif()
  endforeach()
endforeach()
