# Installs BUILD into a folder, moves that to PREFIX, where it must work as well, and compares the names of the files
# with those listed in MANIFEST.
cmake_path(GET PREFIX PARENT_PATH parent)
file(REMOVE_RECURSE ${parent})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${parent}/first
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${parent}/first ${PREFIX})

file(GLOB_RECURSE installed RELATIVE ${PREFIX} ${PREFIX}/*)
list(TRANSFORM installed REPLACE "Targets-[a-z]+[.]cmake" "Targets-CONFIG.cmake")
list(JOIN installed "\n" installed)
file(READ ${MANIFEST} expected)
if(NOT "${installed}\n" STREQUAL expected)
  message(FATAL_ERROR "installed:\n${installed}\nexpected:\n${expected}")
endif()
