# Runs PROGRAM with the file INPUT as its standard input and compares what it prints with the file EXPECTED, in which
# "TIME" stands for any time stamp.
execute_process(COMMAND ${PROGRAM} INPUT_FILE ${INPUT} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
string(REGEX REPLACE "[0-9-]+T[0-9:]+[.][0-9][0-9][0-9]Z" "TIME" printed "${printed}")
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "printed:\n${printed}\nexpected:\n${expected}")
endif()
