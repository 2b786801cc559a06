# The program under other regional settings than those of the other tests: the date has the user's form, texts the
# user's code page. The variable WINE_RUN is the command that runs it.
file(REMOVE_RECURSE ${OUTPUT})
file(MAKE_DIRECTORY ${OUTPUT})
string(ASCII 239 187 191 utf8_mark)
file(WRITE ${OUTPUT}/template.ini
  "${utf8_mark}[general]\r\nprogramID=9000010a0b040100\r\nselfDoc=21°C, Größe, 温度, −\r\n")
set(ENV{SOURCE_DATE_EPOCH} 1795254067)

# written(<locale> <line in hexadecimal>): such a line is in the XIF file that the program writes under the locale.
function(written locale line)
  set(ENV{LC_ALL} ${locale})
  execute_process(
    COMMAND ${WINE_RUN} ${PROGRAM} generate --mustGenerateTypes false --iniTemplateFile template.ini
            --iniProfileFile ${PROFILE_IN_WINE} --outputXIFfile ${locale}.xif
    WORKING_DIRECTORY ${OUTPUT}
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
  file(READ ${OUTPUT}/${locale}.xif bytes HEX)
  if(NOT bytes MATCHES "0d0a${line}0d0a")
    message(FATAL_ERROR "${locale}: no line ${line} in ${bytes}")
  endif()
endfunction()

# "All rights reserved. Run on " and the date.
set(run_on 416c6c207269676874732072657365727665642e2052756e206f6e20)
written(de_DE.UTF-8 ${run_on}32312e31312e323032362030393a34313a3037)  # 21.11.2026 09:41:07
written(ja_JP.UTF-8 ${run_on}323032362f31312f323120393a34313a3037)    # 2026/11/21 9:41:07

# The default of a number has the user's decimal separator.
set(ENV{LC_ALL} de_DE.UTF-8)
execute_process(
  COMMAND ${WINE_RUN} ${TESTS} --gtest_filter=WindowsSettings.*
  OUTPUT_VARIABLE output)
if(NOT output MATCHES "the default is 2,5.*PASSED[^\n]* 1 test")
  message(FATAL_ERROR "${output}")
endif()

# What a code page lacks is one question mark, never a character that looks alike: windows-1252 the ideographs, code page
# 932 the letters, neither of them the minus sign.
written(de_DE.UTF-8 223231b0432c204772f6df652c203f3f2c203f)
written(ja_JP.UTF-8 223231818b432c2047723f3f652c2089b793782c203f)
message("the user's settings are followed")
