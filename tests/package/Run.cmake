# What the consumers of the package share.

# run(<command>...): which has to succeed. What it printed is in the variable `output`.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\nended with ${status}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# require_match(<text> <expression>...): each of them is found.
function(require_match text)
  foreach(expression IN LISTS ARGN)
    if(NOT text MATCHES "${expression}")
      message(FATAL_ERROR "Nothing like '${expression}' in:\n${text}")
    endif()
  endforeach()
endfunction()

# shown_in_document(<language> <beginning> <variable>): the block of DOCUMENT that begins so.
function(shown_in_document language beginning variable)
  file(READ ${DOCUMENT} text)
  if(NOT text MATCHES "```${language}\n(${beginning}[^`]*)```")
    message(FATAL_ERROR "${DOCUMENT} shows no block of ${language} that begins with '${beginning}'")
  endif()
  set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()
