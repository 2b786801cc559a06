# A project that takes the sources in, as the document tells: library, program and catalog are its targets, and nothing of
# our own development is. Building them all would build the library once more, so Ninja tells what it would do, and the
# catalog alone is made, of ready files.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)
set(fetching ${WORK}/fetching)
file(REMOVE_RECURSE ${fetching})

shown_in_document(cpp "#include" device)
file(WRITE ${fetching}/device.cpp "${device}")
shown_in_document(cmake "include.FetchContent" lines)
string(REPLACE "\${CMAKE_CURRENT_SOURCE_DIR}/../tovarek" "${SOURCE}" lines "${lines}")
file(WRITE ${fetching}/CMakeLists.txt "cmake_minimum_required(VERSION 3.21)
project(Fetching LANGUAGES CXX)
add_executable(device device.cpp)
${lines}
tovarek_generate(TARGET fan_coil JOB ${SOURCE}/examples/fan-coil/job.json)
file(WRITE \${CMAKE_BINARY_DIR}/folder \"\${TOVAREK_CATALOG_FOLDER}\")
")
set(configure ${CMAKE_COMMAND} -S ${fetching} -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER})
run(${configure} -B ${fetching}/build)
run(${CMAKE_COMMAND} --build ${fetching}/build --target device fan_coil -- -n)
require_match("${output}" "Linking CXX static library [^\n]*libtovarek\\.a" "Building the standard catalog"
              "Linking CXX executable device" "Linking CXX executable [^\n]*tovarek\n" "Generating fan_coil")
run(${CMAKE_COMMAND} --build ${fetching}/build -- -t targets all)
require_match("${output}" "tovarek_host: phony")
if(output MATCHES "_tests:|replay_|bench:|/install:")
  message(FATAL_ERROR "A project gets targets that only our own development wants:\n${output}")
endif()
file(READ ${fetching}/build/build.ninja rules)
if(rules MATCHES "-Werror")
  message(FATAL_ERROR "Warnings are errors in a project that takes the sources in")
endif()

run(${configure} -B ${fetching}/copying -DTOVAREK_CATALOG_DIR=${BUILD}/catalog)
run(${CMAKE_COMMAND} --build ${fetching}/copying --target standard_catalog)
file(READ ${fetching}/copying/folder folder)
if(NOT EXISTS "${folder}/ldrf.cat")
  message(FATAL_ERROR "There is no catalog in '${folder}'")
endif()
