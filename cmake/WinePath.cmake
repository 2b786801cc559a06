# tovarek_path_in_wine(<variable> <path>): an absolute path of this machine as Windows programs see it. Its root is Wine's
# drive Z.
function(tovarek_path_in_wine variable path)
  string(REPLACE "/" "\\" path "Z:${path}")
  set(${variable} "${path}" PARENT_SCOPE)
endfunction()
