# The packages for Linux, all by `cmake --build <folder> --target package`: one for Debian with the program, one with library
# and headers, and an archive with the portable program. The components are named in Install.cmake.
set(CPACK_PACKAGE_NAME tovarek)
set(CPACK_PACKAGE_CONTACT "The Tovarek developers <developers@tovarek.invalid>")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/PackageOf.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
    WORLD_EXECUTE)

# ---- Debian ----
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME tovarek)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libtovarek-dev)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libdevel)
# The program generates for builds that use the library, and its package has the catalog.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS "tovarek (= ${PROJECT_VERSION}), libxml2-dev")

set(CPACK_DEBIAN_PROGRAM_DESCRIPTION 
    "tovarek writes the external interface file (XIF 4.0) of a device from its
profile and its application template, and the LonMark resource files of the
device's own types. It checks, compares, converts and shows such files.")
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION 
    "The class that the program tovarek is made of, for programs in C++20: a
static library, its headers, and files for CMake and pkg-config.")

# Each has its licence and its list of changes where Debian's tools look for them.
string(TIMESTAMP debian_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog @ONLY)
configure_file(LICENSE ${PROJECT_BINARY_DIR}/packaging/copyright COPYONLY)
execute_process(COMMAND gzip -9nf ${PROJECT_BINARY_DIR}/packaging/changelog COMMAND_ERROR_IS_FATAL ANY)
foreach(package tovarek:debian libtovarek-dev:library)
  string(REGEX MATCH "(.*):(.*)" package ${package})
  install(FILES ${PROJECT_BINARY_DIR}/packaging/changelog.gz ${PROJECT_BINARY_DIR}/packaging/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CMAKE_MATCH_1} COMPONENT ${CMAKE_MATCH_2} EXCLUDE_FROM_ALL)
endforeach()

# ---- the archive ----
if(TARGET tovarek_portable)
  list(APPEND CPACK_GENERATOR TXZ)
  set(CPACK_TOVAREK_ARCHIVE tovarek-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
  install(TARGETS tovarek_portable RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT portable EXCLUDE_FROM_ALL)
  # Of what is linked into it: the XML library, the C library, that of the compiler, and two libraries of headers.
  set(licences ${static_libxml2}/copyright)
  foreach(package libc6-dev libstdc++-${CMAKE_CXX_COMPILER_VERSION} libcli11-dev nlohmann-json3-dev)
    string(REGEX REPLACE "(stdc..-[0-9]+).*" "\\1-dev" package ${package})
    list(APPEND licences /usr/share/doc/${package}/copyright)
  endforeach()
  foreach(licence IN LISTS licences)
    string(REGEX REPLACE ".*/([^/]+)/copyright$" "\\1" package ${licence})
    string(REPLACE native libxml2 package ${package})
    file(REAL_PATH ${licence} licence)
    install(FILES ${licence} DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences RENAME ${package}.txt COMPONENT portable
      EXCLUDE_FROM_ALL)
  endforeach()
endif()

include(CPack)
cpack_add_component_group(program)
cpack_add_component(common GROUP program)
cpack_add_component(program GROUP program)
cpack_add_component(debian GROUP program)
cpack_add_component_group(library)
cpack_add_component(library GROUP library)
