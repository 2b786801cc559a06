# The program for machines of which nothing is known but their processor: one static file. Its XML library is the one of the
# Windows programs, built for here by scripts/static-libxml2; without it there is no such program.
set(static_libxml2 ${PROJECT_SOURCE_DIR}/build/libxml2/native)
if(NOT CMAKE_BUILD_TYPE MATCHES "^Rel|^MinSize" OR TOVAREK_SANITIZE)
  return()
endif()
if(NOT EXISTS ${static_libxml2}/built-from)
  message(STATUS "No portable program: 'scripts/static-libxml2 native' builds the library that it needs")
  return()
endif()

# The one room that sees the library, compiled for this one.
get_target_property(sources tovarek_xml SOURCES)
list(TRANSFORM sources PREPEND ${PROJECT_SOURCE_DIR}/src/xml/)
add_library(tovarek_xml_portable OBJECT ${sources})
tovarek_settings(tovarek_xml_portable)
target_include_directories(tovarek_xml_portable PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_include_directories(tovarek_xml_portable SYSTEM PRIVATE ${static_libxml2}/include/libxml2)

get_property(rooms GLOBAL PROPERTY TOVAREK_ROOMS)
list(TRANSFORM rooms REPLACE "^tovarek_xml$" tovarek_xml_portable)
add_executable(tovarek_portable ${PROJECT_SOURCE_DIR}/src/cli/main.cpp ${PROJECT_SOURCE_DIR}/packaging/NoIconv.cpp)
tovarek_settings(tovarek_portable)
foreach(room IN LISTS rooms ITEMS tovarek_report tovarek_commands tovarek_standard_set)
  target_sources(tovarek_portable PRIVATE $<TARGET_OBJECTS:${room}>)
endforeach()
target_include_directories(tovarek_portable PRIVATE ${PROJECT_SOURCE_DIR}/src)
# In the words of the compiler, since CMake's would ask for a program that a loader puts together.
set_property(TARGET tovarek_portable PROPERTY POSITION_INDEPENDENT_CODE)
target_compile_options(tovarek_portable PRIVATE -fPIE)
target_link_options(tovarek_portable PRIVATE -static-pie)
target_link_libraries(tovarek_portable PRIVATE ${static_libxml2}/lib/libxml2.a)
set_target_properties(tovarek_portable PROPERTIES
  OUTPUT_NAME tovarek
  RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/portable)
