# Cross build for Windows with mingw-w64. TRIPLE chooses the width: x86_64-w64-mingw32 or i686-w64-mingw32.
set(TRIPLE x86_64-w64-mingw32 CACHE STRING "Target of the cross compiler")
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TRIPLE)
set(CMAKE_SYSTEM_NAME Windows)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR "${TRIPLE}")

# The -posix compilers have std::mutex and its like; the ones without a suffix may be the other flavour.
set(CMAKE_C_COMPILER ${TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${TRIPLE}-windres)
set(TOVAREK_WIDL ${TRIPLE}-widl)

# The second folder is what scripts/libxml2-for-windows makes.
get_filename_component(TOVAREK_LIBXML2_FOLDER ${CMAKE_CURRENT_LIST_DIR}/../../build/libxml2/${TRIPLE} ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH /usr/${TRIPLE} ${TOVAREK_LIBXML2_FOLDER})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs and the server need no library of the compiler beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")

if(TRIPLE MATCHES "^i686")
  # The 387 computes with more digits than a double has; files must not depend on the width of the program.
  set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
  # Names of stdcall functions carry their stack size, which the .def file leaves out.
  string(APPEND CMAKE_SHARED_LINKER_FLAGS_INIT " -Wl,--enable-stdcall-fixup")
endif()
