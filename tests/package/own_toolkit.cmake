# A host with a libQX_Toolkit of its own: libQX_Encoding alone is built and installed beside it, and found with it.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/host/lib)
file(COPY ${TOOLKIT} DESTINATION ${WORK}/host/lib FOLLOW_SYMLINK_CHAIN)
function(run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
  if(status)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${output}")
  endif()
endfunction()

set(configure ${CMAKE_COMMAND} -S ${SOURCE} -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Release
  -DQX_BUNDLED_TOOLKIT=OFF -DQX_BUILD_TESTS=OFF -DQX_BUILD_TOOLS=OFF)
run(${configure} -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/host)
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${CMAKE_COMMAND} --install ${WORK}/build --prefix ${WORK}/host)
file(GLOB toolkits ${WORK}/build/*/libQX_Toolkit*)
if(toolkits)
  message(FATAL_ERROR "built although the host brings its own: ${toolkits}")
endif()

# One that the machine has may not be found in its place.
execute_process(COMMAND ${configure} -B ${WORK}/without -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF OUTPUT_QUIET ERROR_VARIABLE refusal RESULT_VARIABLE status)
if(NOT status OR NOT refusal MATCHES "libQX_Toolkit was not found")
  message(FATAL_ERROR "configured without any toolkit:\n${refusal}")
endif()
