# Runs PROGRAM and compares what it prints with the file EXPECTED.
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "printed:\n${printed}\nexpected:\n${expected}")
endif()
