# tovarek_generate(TARGET <name> JOB <job.json>
#                  [DIRECTORY <folder>] [SET <property>=<value>...] [OUTPUTS <files>...] [DEPENDS <files or targets>...])
#
# A target, built by default, that generates the files of a job: again when the job, an input that it read, the catalog or
# the program has changed, and an output is written only when it would hold something else.
# - Outputs count from DIRECTORY, by default the build folder of the caller; SET sets properties beside the job.
# - The XIF file is known to the build, so that other rules may depend on it; the target's property TOVAREK_XIF_FILE is its
#   path. OUTPUTS names other files that rules depend on, such as resource files.
# - DEPENDS names inputs that other rules make. All other inputs are found by themselves.
#
# The program is the target Tovarek::program: that of this package, or, where programs are built for another system, one
# that the building machine has. TOVAREK_PROGRAM names any other.
if(NOT TARGET Tovarek::program)
  find_program(TOVAREK_PROGRAM tovarek HINTS ${TOVAREK_PROGRAM_FOLDER} NO_CMAKE_FIND_ROOT_PATH
    DOC "The program tovarek, as the building machine runs it")
  if(TOVAREK_PROGRAM)
    add_executable(Tovarek::program IMPORTED GLOBAL)
    set_target_properties(Tovarek::program PROPERTIES IMPORTED_LOCATION ${TOVAREK_PROGRAM})
  endif()
endif()

# The path of the XIF file that a job writes, from DIRECTORY or absolute; empty when it writes none. The last word counts.
function(tovarek_xif_file variable job)
  file(READ ${job} text)
  foreach(property mustGenerateXif outputXIFfile)
    string(JSON ${property} ERROR_VARIABLE missing GET "${text}" ${property})
    if(missing)
      set(${property} "")
    endif()
    foreach(setting IN LISTS ARGN)
      if(setting MATCHES "^${property}=(.*)$")
        set(${property} "${CMAKE_MATCH_1}")
      endif()
    endforeach()
  endforeach()
  if(mustGenerateXif MATCHES "^(OFF|[Ff]alse|0)$")
    set(outputXIFfile "")
  endif()
  string(REPLACE "\\" "/" outputXIFfile "${outputXIFfile}")
  set(${variable} "${outputXIFfile}" PARENT_SCOPE)
endfunction()

function(tovarek_generate)
  cmake_parse_arguments(PARSE_ARGV 0 JOB "" "TARGET;JOB;DIRECTORY" "SET;OUTPUTS;DEPENDS")
  if(NOT JOB_TARGET OR NOT JOB_JOB OR JOB_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "tovarek_generate(${ARGV}): expected TARGET <name> JOB <job.json> and, if wanted, DIRECTORY, SET, "
                        "OUTPUTS, DEPENDS; ${JOB_UNPARSED_ARGUMENTS} is none of them")
  endif()
  if(NOT TARGET Tovarek::program)
    message(FATAL_ERROR "tovarek_generate(${JOB_TARGET}): this machine has no program 'tovarek'; install it, or name one "
                        "with -DTOVAREK_PROGRAM=PATH")
  endif()
  get_filename_component(job ${JOB_JOB} ABSOLUTE)
  get_filename_component(folder "${JOB_DIRECTORY}" ABSOLUTE BASE_DIR ${CMAKE_CURRENT_BINARY_DIR})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${job})
  tovarek_xif_file(xif ${job} ${JOB_SET})
  set(outputs)
  foreach(file IN LISTS xif JOB_OUTPUTS)
    get_filename_component(file ${file} ABSOLUTE BASE_DIR ${folder})
    get_filename_component(folder_of_file ${file} DIRECTORY)
    file(MAKE_DIRECTORY ${folder_of_file})
    list(APPEND outputs ${file})
  endforeach()
  file(MAKE_DIRECTORY ${folder})

  set(settings ${JOB_SET})
  list(TRANSFORM settings PREPEND --set=)
  if(TARGET standard_catalog)
    list(APPEND JOB_DEPENDS standard_catalog)
  endif()
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${JOB_TARGET}.stamp)
  add_custom_command(OUTPUT ${stamp}
    BYPRODUCTS ${outputs}
    COMMAND Tovarek::program generate --job ${job} ${settings} --if-changed --stamp ${stamp} --depfile ${stamp}.d
    DEPFILE ${stamp}.d
    DEPENDS ${job} Tovarek::program ${JOB_DEPENDS}
    WORKING_DIRECTORY ${folder}
    COMMENT "Generating ${JOB_TARGET}"
    VERBATIM)
  add_custom_target(${JOB_TARGET} ALL DEPENDS ${stamp})
  if(xif)
    list(GET outputs 0 xif)
  endif()
  set_target_properties(${JOB_TARGET} PROPERTIES TOVAREK_XIF_FILE "${xif}")
endfunction()
