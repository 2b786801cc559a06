# Every folder under src/ is a room: a target of its own that may lean only on the rooms it names.

# Compiler settings that hold for every target of the project.
add_library(tovarek_settings INTERFACE)
target_compile_features(tovarek_settings INTERFACE cxx_std_20)
target_compile_options(tovarek_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual
  # Interfaces of COM have no destructor: their objects end themselves.
  $<$<NOT:$<PLATFORM_ID:Windows>>:-Wnon-virtual-dtor>
  # Contexts of errors name the members that are known and leave the others out.
  -Wno-missing-field-initializers
  # GCC 12 warns without cause where a literal and a string are joined in optimised code.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  $<$<BOOL:${TOVAREK_WARNINGS_AS_ERRORS}>:-Werror>)
# A place beyond the end of a container ends a test, where the sanitizers would see memory that is there.
target_compile_definitions(tovarek_settings INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
if(TOVAREK_SANITIZE)
  target_compile_options(tovarek_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tovarek_settings INTERFACE -fsanitize=address,undefined)
endif()
include(cmake/Hardening.cmake)

# What is linked to be tested once is linked in a fifth of the time where LLVM's linker is there.
find_program(TOVAREK_LLD ld.lld)
if(TOVAREK_LLD AND NOT CMAKE_CROSSCOMPILING)
  target_link_options(tovarek_settings INTERFACE $<$<CONFIG:Debug>:-fuse-ld=lld>)
endif()

# Applies the settings to a target; everything but installed interfaces is covered.
function(tovarek_settings target)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:tovarek_settings>)
endfunction()

# tovarek_check_includes(<target> FOLDER <folder under src> [ROOMS <rooms it may include from>])
#
# An include of a header of any room but these and its own ends the build, before the target is compiled; so does a room
# in the list that no file includes from.
function(tovarek_check_includes target)
  cmake_parse_arguments(CHECK "" "FOLDER" "ROOMS" ${ARGN})
  string(REPLACE ";" "," allowed "${CHECK_ROOMS}")
  add_custom_target(${target}_includes
    COMMAND ${CMAKE_COMMAND} -DROOT=${PROJECT_SOURCE_DIR}/src -DROOM=${CHECK_FOLDER} -DALLOWED=${allowed}
            -P ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
    VERBATIM)
  add_dependencies(${target} ${target}_includes)
endfunction()

# tovarek_room(<target> FOLDER <folder under src> SOURCES <files> [ROOMS <rooms it may include from>] [LIBRARIES <libraries>])
#
# A room of the library. Rooms are named as folders.
function(tovarek_room target)
  cmake_parse_arguments(ROOM "" "FOLDER" "SOURCES;ROOMS;LIBRARIES" ${ARGN})
  add_library(${target} OBJECT ${ROOM_SOURCES})
  tovarek_settings(${target})
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
  target_link_libraries(${target} PRIVATE ${ROOM_LIBRARIES})

  tovarek_check_includes(${target} FOLDER ${ROOM_FOLDER} ROOMS ${ROOM_ROOMS})
  set_property(GLOBAL APPEND PROPERTY TOVAREK_ROOMS ${target})
  set_property(GLOBAL APPEND PROPERTY TOVAREK_ROOM_FOLDERS ${ROOM_FOLDER})
endfunction()
