set(prefix ${WORK}/prefix)
file(REMOVE_RECURSE ${prefix} ${WORK}/consumer ${WORK}/fetching ${WORK}/node.xif)

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\nended with ${status}:\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
file(READ ${DOCUMENT} text)
string(REGEX MATCH "```cpp\n([^`]*)```" shown "${text}")
file(WRITE ${WORK}/device.cpp "${CMAKE_MATCH_1}")
run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/consumer -G Ninja -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DDEVICE=${WORK}/device.cpp)
run(${CMAKE_COMMAND} --build ${WORK}/consumer)
run(${WORK}/consumer/consumer)
# The same program in a project that takes the sources in, as the document tells. It is only configured: building it would
# build the library once more.
string(REGEX MATCH "```cmake\n(include.FetchContent.[^`]*)```" shown "${text}")
string(REPLACE "\${CMAKE_CURRENT_SOURCE_DIR}/../tovarek" "${SOURCE}" fetching "${CMAKE_MATCH_1}")
file(WRITE ${WORK}/fetching/CMakeLists.txt "cmake_minimum_required(VERSION 3.21)
project(Fetching LANGUAGES CXX)
add_executable(device ${WORK}/device.cpp)
${fetching}")
run(${CMAKE_COMMAND} -S ${WORK}/fetching -B ${WORK}/fetching/build -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER})
# The program that docs/cpp.md shows writes the example device.
set(share ${prefix}/share/tovarek)
run(${WORK}/consumer/device ${share}/examples/fan-coil/profile.ini ${share}/examples/fan-coil/template.ini ${WORK}/node.xif)
run(${prefix}/bin/tovarek dump ${WORK}/node.xif)
# The installed program finds the installed catalog.
run(${prefix}/bin/tovarek catalog show SNVT_temp_p)
