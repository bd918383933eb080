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

# refused(MESSAGE COMMAND…): the command fails with a message that holds this.
function(refused message)
  execute_process(COMMAND ${ARGN} OUTPUT_QUIET ERROR_VARIABLE refusal RESULT_VARIABLE status)
  if(NOT status OR NOT refusal MATCHES "${message}")
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nis not refused with: ${message}\n${refusal}")
  endif()
endfunction()

# One that the machine has may not be found in its place.
set(alone -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF)
refused("libQX_Toolkit was not found" ${configure} -B ${WORK}/without ${alone})

# The package finds the toolkit beside itself, and says why it does not have what it has not.
function(consumer folder line)
  file(WRITE ${WORK}/${folder}/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)\nproject(consumer LANGUAGES CXX)\n${line}\n")
endfunction()
set(found -DQX_Encoding_DIR=${WORK}/host/lib/cmake/QX_Encoding -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER} ${alone})
consumer(found "find_package(QX_Encoding 1 REQUIRED)")
run(${CMAKE_COMMAND} -S ${WORK}/found -B ${WORK}/found/build ${found})
consumer(component "find_package(QX_Encoding 1 REQUIRED COMPONENTS Encoding)")
refused("it has no components" ${CMAKE_COMMAND} -S ${WORK}/component -B ${WORK}/component/build ${found})

# A toolkit that is built in the same tree is not installed with the library.
file(WRITE ${WORK}/intree/toolkit.cpp "")
consumer(intree "add_library(toolkit SHARED toolkit.cpp)
add_library(QX::Toolkit ALIAS toolkit)
add_subdirectory(\"${SOURCE}\" library)")
refused("takes a libQX_Toolkit that is installed" ${CMAKE_COMMAND} -S ${WORK}/intree -B ${WORK}/intree/build -G Ninja
  -DCMAKE_CXX_COMPILER=${COMPILER} -DQX_BUNDLED_TOOLKIT=OFF -DQX_INSTALL=ON)

# Libraries in a folder of their own, outside the prefix.
run(${configure} -B ${WORK}/outside -DCMAKE_PREFIX_PATH=${WORK}/host -DCMAKE_INSTALL_PREFIX=/usr/local
  -DCMAKE_INSTALL_LIBDIR=/opt/elsewhere/lib)
file(STRINGS ${WORK}/outside/QX_Encoding.pc lines LIMIT_COUNT 3)
set(expected "prefix=\${pcfiledir}/../../../../usr/local" "libdir=\${pcfiledir}/.." "includedir=\${prefix}/include")
if(NOT lines STREQUAL expected)
  message(FATAL_ERROR "QX_Encoding.pc begins with\n${lines}")
endif()
