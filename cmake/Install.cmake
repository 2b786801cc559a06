# What an installation holds: the program, the library with its headers and CMake package, and, common to all packages, the
# standard catalog, the examples and the documents. The components are what PackageLinux.cmake puts together.
if(WIN32)
  # Programs use the automation server there; its package has a form of its own.
  include(cmake/Package.cmake)
  return()
endif()

include(CMakePackageConfigHelpers)

install(TARGETS tovarek EXPORT TovarekTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
install(TARGETS tovarek_host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)

# Headers keep their rooms: a user includes "component/Tovarek.h" as the project itself does. Those of another platform
# would not compile here.
set(headers_of_windows "system/(Bstr|ComPtr|ModuleFile|Variant|Wide)\\.h$|xml/XmlHost\\.h$")
get_property(folders GLOBAL PROPERTY TOVAREK_ROOM_FOLDERS)
foreach(room IN LISTS folders)
  file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${room}/*.h ${PROJECT_SOURCE_DIR}/src/${room}/*.inc)
  list(FILTER headers EXCLUDE REGEX "${headers_of_windows}")
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tovarek/${room} COMPONENT library)
endforeach()

install(EXPORT TovarekTargets NAMESPACE Tovarek:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tovarek COMPONENT library)
configure_package_config_file(cmake/TovarekConfig.cmake.in ${PROJECT_BINARY_DIR}/cmake/TovarekConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tovarek
  PATH_VARS CMAKE_INSTALL_DATADIR CMAKE_INSTALL_BINDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/TovarekConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/cmake/TovarekConfig.cmake ${PROJECT_BINARY_DIR}/cmake/TovarekConfigVersion.cmake
  cmake/TovarekGenerate.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tovarek COMPONENT library)

# For builds without CMake. It finds its folders from its own, so an installation may be moved.
file(RELATIVE_PATH TOVAREK_PREFIX_FROM_PKGCONFIG /${CMAKE_INSTALL_LIBDIR}/pkgconfig /.)
configure_file(cmake/tovarek.pc.in ${PROJECT_BINARY_DIR}/cmake/tovarek.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cmake/tovarek.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT library)

install(DIRECTORY ${PROJECT_BINARY_DIR}/catalog/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tovarek/catalog COMPONENT common)
install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tovarek/examples COMPONENT common)
install(FILES README.md CHANGELOG.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT common)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT common)

# What the program prints for man and for shells, where Debian's tools look for it.
if(NOT CMAKE_CROSSCOMPILING)
  set(printed ${PROJECT_BINARY_DIR}/printed)
  foreach(row man:tovarek.1:man/man1 bash:tovarek:bash-completion/completions zsh:_tovarek:zsh/vendor-completions
          fish:tovarek.fish:fish/vendor_completions.d)
    string(REPLACE ":" ";" row ${row})
    list(GET row 0 what)
    list(GET row 1 name)
    list(GET row 2 folder)
    set(file ${printed}/${what}/${name})
    install(CODE "file(MAKE_DIRECTORY \"${printed}/${what}\")
      execute_process(COMMAND \"$<TARGET_FILE:tovarek_host>\" print ${what} OUTPUT_FILE \"${file}\" COMMAND_ERROR_IS_FATAL ANY)"
      COMPONENT common)
    if(what STREQUAL man)
      install(CODE "execute_process(COMMAND gzip -9nf \"${file}\" COMMAND_ERROR_IS_FATAL ANY)" COMPONENT common)
      string(APPEND file .gz)
    endif()
    install(FILES ${file} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder} COMPONENT common)
  endforeach()
endif()

include(cmake/Portable.cmake)
include(cmake/PackageLinux.cmake)
