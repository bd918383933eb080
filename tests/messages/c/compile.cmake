# Compiles a C program as C99 by COMPILER (a command and its options, a list) against the header and the LIBRARY, without a
# warning, runs it with INPUT and ARGUMENTS, and compares what it prints with the file EXPECTED.
list(GET COMPILER 0 command)
find_program(found ${command})
if(NOT found AND "$ENV{CI}" STREQUAL "true")
  message(FATAL_ERROR "the checks need ${command}")
elseif(NOT found)
  message("no ${command} here")
  return()
endif()
cmake_path(GET LIBRARY PARENT_PATH folder)
file(MAKE_DIRECTORY ${WORK})
execute_process(COMMAND ${COMPILER} -std=c99 -Wall -Werror -I ${INCLUDE} ${SOURCE} -o ${WORK}/program ${LIBRARY}
  -Wl,-rpath=${folder} OUTPUT_VARIABLE said ERROR_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
if(said)
  message(FATAL_ERROR "${said}")
endif()
execute_process(COMMAND ${WORK}/program ${ARGUMENTS} INPUT_FILE ${INPUT} OUTPUT_VARIABLE printed
  COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "printed:\n${printed}\nexpected:\n${expected}")
endif()
