# What an installation for Windows holds, and the ZIP file that it comes in: the automation server and its registration,
# the program, the standard catalog, examples, and the interface for C and C++ clients. `cmake --build <folder> --target
# package` makes the ZIP file.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(PACKAGE_BITS 64)
  set(OTHER_PACKAGE_BITS 32)
  # The 64-bit programs, for 32-bit ones. It exists for nobody else.
  set(OTHER_SYSTEM_FOLDER Sysnative)
  set(REGSVR32 "%SystemRoot%\\System32\\regsvr32.exe")
else()
  set(PACKAGE_BITS 32)
  set(OTHER_PACKAGE_BITS 64)
  # The 32-bit programs of a 64-bit system; a 32-bit system has none.
  set(OTHER_SYSTEM_FOLDER SysWOW64)
  set(REGSVR32 "%SystemRoot%\\SysWOW64\\regsvr32.exe")
endif()

# tovarek_package_text(<source> <file in the package>): a text with the line ends of Windows.
function(tovarek_package_text source file)
  configure_file(${source} ${PROJECT_BINARY_DIR}/packaging/${file} @ONLY NEWLINE_STYLE CRLF)
  get_filename_component(folder ${file} DIRECTORY)
  install(FILES ${PROJECT_BINARY_DIR}/packaging/${file} DESTINATION ./${folder})
endfunction()

# tovarek_package_registration(<file> <purpose> <result> <option of regsvr32>)
function(tovarek_package_registration file REGISTRATION_PURPOSE REGISTRATION_RESULT REGISTRATION_OPTION)
  tovarek_package_text(packaging/registration.cmd.in ${file})
endfunction()

install(TARGETS QVTovarek tovarek_host RUNTIME DESTINATION .)
set(interface $<TARGET_PROPERTY:tovarek_interface,INTERFACE_INCLUDE_DIRECTORIES>)
install(FILES ${interface}/QVTovarek.tlb DESTINATION .)
install(FILES ${interface}/QVTovarek_h.h ${interface}/QVTovarek_i.c DESTINATION include)
install(DIRECTORY ${PROJECT_BINARY_DIR}/catalog/ DESTINATION catalog)

tovarek_package_registration(register.cmd Registers registered "")
tovarek_package_registration(unregister.cmd Unregisters unregistered "/u ")
tovarek_package_text(packaging/selftest.cmd.in selftest.cmd)
tovarek_package_text(packaging/selftest.vbs selftest.vbs)
tovarek_package_text(packaging/README.txt.in README.txt)
tovarek_package_text(LICENSE LICENSE.txt)
# The XML library, which is part of both programs.
tovarek_package_text(${TOVAREK_LIBXML2_FOLDER}/copyright LICENSE-libxml2.txt)
foreach(name IN ITEMS generate.vbs generate.js generate.ps1 generate.cpp README.md)
  tovarek_package_text(examples/automation/${name} examples/automation/${name})
endforeach()
# Inputs are taken as they are. Their README speaks of the source tree.
install(DIRECTORY examples/fan-coil/ DESTINATION examples/fan-coil PATTERN README.md EXCLUDE)

# The name of the ZIP file and of the one folder in it.
set(TOVAREK_PACKAGE QVTovarek-${PROJECT_VERSION}-win${PACKAGE_BITS})
set(CPACK_PACKAGE_FILE_NAME ${TOVAREK_PACKAGE})
set(CPACK_GENERATOR ZIP)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
