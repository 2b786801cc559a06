# Uses what an installation holds, as other projects do.
set(prefix ${WORK}/prefix)
set(share ${prefix}/share/tovarek)
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)
file(REMOVE_RECURSE ${prefix} ${WORK}/consumer ${WORK}/inputs ${WORK}/node.xif)

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
shown_in_document(cpp "#include" device)
file(WRITE ${WORK}/device.cpp "${device}")
file(COPY ${share}/examples/fan-coil/ DESTINATION ${WORK}/inputs)
run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/consumer -G Ninja -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DDEVICE=${WORK}/device.cpp -DINPUTS=${WORK}/inputs)
run(${CMAKE_COMMAND} --build ${WORK}/consumer)
run(${WORK}/consumer/consumer)

# The generated files: a rule of the consumer has taken the XIF file; a second build does nothing; after a change that is
# none in the XIF file the job runs again, and the rule behind it does not.
set(xif ${WORK}/consumer/generated/demo-output/fan-coil.xif)
run(${CMAKE_COMMAND} -E compare_files ${xif} ${WORK}/consumer/shipped.xif)
run(${CMAKE_COMMAND} --build ${WORK}/consumer)
require_match("${output}" "no work to do")
file(APPEND ${WORK}/inputs/template.xml "<!-- a comment -->\n")
run(${CMAKE_COMMAND} --build ${WORK}/consumer)
require_match("${output}" "Generating fan_coil")
if(output MATCHES "shipped")
  message(FATAL_ERROR "An XIF file that is the same was taken for another:\n${output}")
endif()

# The program that docs/cpp.md shows writes the example device.
run(${WORK}/consumer/device ${share}/examples/fan-coil/profile.ini ${share}/examples/fan-coil/template.ini ${WORK}/node.xif)
run(${prefix}/bin/tovarek dump ${WORK}/node.xif)
# The installed program finds the installed catalog.
run(${prefix}/bin/tovarek catalog show SNVT_temp_p)

# A build without CMake. Every header compiles here: none is another platform's, and none needs another in front.
file(GLOB_RECURSE headers ${prefix}/include/*.h)
list(TRANSFORM headers PREPEND "-include;")
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
function(ask variable)
  execute_process(COMMAND pkg-config ${ARGN} tovarek OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(answer UNIX_COMMAND "${answer}")
  set(${variable} ${answer} PARENT_SCOPE)
endfunction()
ask(compiling --cflags)
ask(linking --libs)
ask(catalog --variable=catalogdir)
run(${COMPILER} -std=c++20 -fsyntax-only ${compiling} ${headers} -x c++ /dev/null)
run(${COMPILER} -std=c++20 "-DCATALOG=\"${catalog}\"" ${CONSUMER}/main.cpp -o ${WORK}/by-pkg-config
    ${compiling} ${linking})
run(${WORK}/by-pkg-config)
