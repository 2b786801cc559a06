# Writes the source that holds the files of the standard set, for the program: cmake -DFOLDER=... -DSOURCE=... -P
# Every compiler takes a literal, and it tells nothing of the machine.
set(text "#include \"cli/StandardSet.h\"\n\nnamespace tovarek {\nnamespace {\n\n")
foreach(part typ enu fmt)
  file(READ ${FOLDER}/standard.${part} bytes HEX)
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
  string(APPEND text "constexpr char ${part}[] = \"${bytes}\";\n")
  list(APPEND parts "{${part}, sizeof ${part} - 1}")
endforeach()
list(JOIN parts ", " parts)
string(APPEND text "\n}  // namespace\n\nStandardSetBytes StandardSetInside() {\n    return {${parts}};\n}\n\n"
       "}  // namespace tovarek\n")
file(WRITE ${SOURCE} "${text}")
