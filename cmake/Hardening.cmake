# What makes a fault in a released program hard to use, and builds in two folders the same. Included by Rooms.cmake.
# The sanitizers see more, and do not go together with it.
if(TOVAREK_SANITIZE)
  return()
endif()
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(released $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)

# tovarek_harden(<compile options>...): those that the compiler knows for its target.
function(tovarek_harden)
  foreach(option IN LISTS ARGN)
    string(MAKE_C_IDENTIFIER "TOVAREK_HAS_${option}" known)
    check_cxx_compiler_flag(${option} ${known})
    if(${known})
      target_compile_options(tovarek_settings INTERFACE $<${released}:${option}>)
    endif()
  endforeach()
endfunction()

tovarek_harden(-fstack-protector-strong)
if(WIN32)
  # What a broken stack ends in lies in a library of its own there, which the compiler adds.
  target_link_options(tovarek_settings INTERFACE $<${released}:-fstack-protector-strong>)
  # Addresses at random, among all 64 bits of one where it has so many; data that is not run.
  set(link --dynamicbase --nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    list(APPEND link --high-entropy-va)
  endif()
else()
  tovarek_harden(-fcf-protection -fstack-clash-protection)
  # Taken back first: some compilers set it themselves, to another level. The C library warns where nothing is optimised,
  # as tests are not.
  set(optimised $<AND:${released},$<NOT:$<BOOL:$<TARGET_PROPERTY:TOVAREK_UNOPTIMISED>>>>)
  target_compile_options(tovarek_settings INTERFACE "$<${optimised}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  # What the loader fills in is read-only afterwards.
  set(link -z relro -z now -z noexecstack)
endif()
list(JOIN link "," link)
target_link_options(tovarek_settings INTERFACE "$<${released}:LINKER:${link}>")

# Names of files in a program are those of the source tree, wherever it lies.
foreach(map ${PROJECT_SOURCE_DIR}=. ${PROJECT_BINARY_DIR}=build)
  target_compile_options(tovarek_settings INTERFACE $<${released}:-ffile-prefix-map=${map}>)
endforeach()
