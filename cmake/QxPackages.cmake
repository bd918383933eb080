# Debian packages by CPack, split as Debian splits: a package for each library, one for development, one for the tool.
#   cmake --preset packages && cmake --build --preset packages && cpack --config build/packages/CPackConfig.cmake
set(QX_DEBIAN_RELEASE 1)
set(QX_DEBIAN_VERSION ${PROJECT_VERSION}-${QX_DEBIAN_RELEASE})
set(debian ${PROJECT_BINARY_DIR}/debian)
find_program(QX_GZIP gzip REQUIRED)

# qx_write_compressed(file text): without name or time in it, so that the same text gives the same file.
function(qx_write_compressed file text)
  file(WRITE ${file} "${text}")
  execute_process(COMMAND ${QX_GZIP} -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qx-encoding)
set(CPACK_PACKAGE_VENDOR "The developers of libQX_Encoding")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${QX_DEBIAN_RELEASE})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The developers of libQX_Encoding <maintainers@libqx-encoding.example>")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What the packages need of one another is said below; the rest is read off the files.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/toolkit ${PROJECT_BINARY_DIR}/src
    ${PROJECT_BINARY_DIR}/messages)

# qx_package(component package section depends description)
macro(qx_package component package section depends description)
  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${description}")
  qx_write_compressed(${debian}/${package}/changelog.Debian
    "libqx-encoding (${QX_DEBIAN_VERSION}) unstable; urgency=low\n\n  * See CHANGELOG.md of the sources.\n
 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  Sun, 01 Nov 2026 00:00:00 +0000\n")
  file(WRITE ${debian}/${package}/copyright
    "The files of this package were built from the sources of libQX_Encoding, which are the work of its developers.\n"
    "No licence has been granted for them.\n")
  install(FILES ${debian}/${package}/copyright ${debian}/${package}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
endmacro()

# qx_library_package(component library soversion package depends description): other packages learn from it what they
# need, and the loader that there is something new.
macro(qx_library_package component library soversion package depends description)
  qx_package(${component} ${package} libs "${depends}" "${description}")
  file(WRITE ${debian}/${package}/shlibs "${library} ${soversion} ${package} (>= ${PROJECT_VERSION})\n")
  file(WRITE ${debian}/${package}/triggers "activate-noawait ldconfig\n")
  set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA ${debian}/${package}/shlibs ${debian}/${package}/triggers)
endmacro()

qx_library_package(toolkit libQX_Toolkit ${PROJECT_VERSION_MAJOR} libqx-toolkit1 ""
"support library of libQX_Encoding
Reference-counted pointers, wide strings, a logger, date and time: what
libQX_Encoding needs of the application that it runs in. An application
that brings its own takes that instead.")
qx_library_package(encoding libQX_Encoding ${PROJECT_VERSION_MAJOR} libqx-encoding1 "libqx-toolkit1 (>= ${PROJECT_VERSION})"
"short messages to PDUs and PDUs to text
SMS-SUBMIT encoding, decoding of SMS-DELIVER, SMS-SUBMIT and
SMS-STATUS-REPORT (3GPP TS 23.040), cell broadcast pages (TS 23.041), the
GSM 7-bit default alphabet with Greek transliteration (TS 23.038) and UCS2
hex text.")
qx_package(dev libqx-encoding-dev libdevel
"libqx-encoding1 (= ${QX_DEBIAN_VERSION}), libqx-toolkit1 (= ${QX_DEBIAN_VERSION})"
"short messages to PDUs and PDUs to text - development files
Headers of libQX_Encoding and of its support library libQX_Toolkit, a CMake
package and pkg-config files.")
qx_library_package(messages libQX_Messages ${PROJECT_VERSION_MAJOR} libqx-messages1 ""
"short messages read by the standards
All six TPDU types of 3GPP TS 23.040 and the alphabets of TS 23.038 with
those of national languages: fields, text in UTF-8, where everything stands
in the octets and what is unusual in it.")
qx_package(messages_dev libqx-messages-dev libdevel "libqx-messages1 (= ${QX_DEBIAN_VERSION})"
"short messages read by the standards - development files
Headers of libQX_Messages for C++ and C, a CMake package and a pkg-config
file.")
set(libraries "libqx-encoding1 (>= ${PROJECT_VERSION}), libqx-messages1 (>= ${PROJECT_VERSION})")
string(APPEND libraries ", libqx-toolkit1 (>= ${PROJECT_VERSION})")
qx_package(tool qxpdu comm "${libraries}"
"short messages and cell broadcast pages between octets and text
Encodes texts to SMS-SUBMIT PDUs, decodes and explains PDUs octet by octet,
reads the logs of modems and streams of any length, writes JSON.")

qx_package(sqlite libqx-messages-sqlite libs "${libraries}"
"short messages read by SQL - extension of SQLite
Functions for PDUs in tables of SQLite: text, address, time and every field
of short messages, texts of several parts, pages of cell broadcast.")
file(WRITE ${debian}/libqx-messages-sqlite/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_SQLITE_PACKAGE_CONTROL_EXTRA ${debian}/libqx-messages-sqlite/triggers)

qx_package(python python3-qxpdu python "libqx-messages1 (>= ${PROJECT_VERSION}), python3 (>= 3.11)"
"short messages and cell broadcast pages from Python
Reads and writes PDUs of all six types, counts and cuts texts, joins parts and
pages, by 3GPP TS 23.038, TS 23.040 and TS 23.041.")
# Python's own tools make what it would otherwise make when it runs, and take it away.
foreach(script IN ITEMS "postinst py3compile" "prerm py3clean")
  string(REPLACE " " ";" script "${script}")
  list(GET script 0 name)
  list(GET script 1 command)
  file(WRITE ${debian}/python3-qxpdu/${name} "#!/bin/sh\nset -e\nif command -v ${command} >/dev/null 2>&1; then\n"
    "    ${command} -p python3-qxpdu\nfi\n")
  list(APPEND CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${debian}/python3-qxpdu/${name})
endforeach()

set(CPACK_COMPONENTS_ALL toolkit encoding dev messages messages_dev tool sqlite python)

if(TARGET qx_messages_postgresql)
  qx_package(postgresql postgresql-15-qx-messages database "${libraries}, postgresql-15"
"short messages read by SQL - extension of PostgreSQL 15
Functions for PDUs in tables of PostgreSQL: text, address, time and every
field of short messages, texts of several parts, pages of cell broadcast.")
  list(APPEND CPACK_COMPONENTS_ALL postgresql)
endif()
include(CPack)
