# The program as it is released is hard to misuse, and does not tell where it was built.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

run(${READELF} -hldW --dyn-syms ${PROGRAM})
# Position-independent; what the loader fills in is read-only, all of it from the start; no stack that is run; checks of the
# stack, and of the lengths that functions of the C library are given.
require_match("${output}" "Type: +DYN" "GNU_RELRO" "FLAGS_1[^\n]*NOW[^\n]*PIE" "GNU_STACK[^\n]* RW " "__stack_chk_fail" "__[a-z]+_chk@")
if(output MATCHES "RPATH|RUNPATH")
  message(FATAL_ERROR "The program looks for libraries in folders of its own:\n${output}")
endif()

# Targets of jumps are marked, where the processor knows marks.
run(${OBJDUMP} -d --disassemble=main ${PROGRAM})
if(output MATCHES "elf64-x86-64")
  require_match("${output}" "<main>:\n[^\n]*endbr64")
endif()

file(STRINGS ${PROGRAM} places REGEX "${SOURCE}")
if(places)
  message(FATAL_ERROR "The program holds names of the folder that it was built in: ${places}")
endif()
