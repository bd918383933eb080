# What is installed, and in which Debian package each part of it goes: libraries, development files, tool.
include(CMakePackageConfigHelpers)

set(QX_ZSH_FOLDER site-functions CACHE STRING "Folder of zsh's that takes the completion; Debian's is another")
set(QX_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QX_Encoding)
set(QX_MESSAGES_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QX_Messages)
set(QX_PC_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH QX_PREFIX_FROM_PC ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})

# qx_install_library(target package component dev): what its development files belong to is `dev`.
function(qx_install_library target package component dev)
  install(TARGETS ${target} EXPORT ${package}Targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component} NAMELINK_COMPONENT ${dev})
endfunction()

function(qx_install_pc name dev)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${QX_PC_DIR} COMPONENT ${dev})
endfunction()

# qx_install_package(package folder dev): the CMake package, which finds the rest from where it stands.
function(qx_install_package package folder dev)
  install(EXPORT ${package}Targets NAMESPACE QX:: DESTINATION ${folder} COMPONENT ${dev})
  configure_package_config_file(cmake/${package}Config.cmake.in ${package}Config.cmake
    INSTALL_DESTINATION ${folder} NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file(${package}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/${package}Config.cmake ${PROJECT_BINARY_DIR}/${package}ConfigVersion.cmake
    DESTINATION ${folder} COMPONENT ${dev})
endfunction()

qx_install_library(QX_Encoding QX_Encoding encoding dev)
if(QX_BUNDLED_TOOLKIT)
  qx_install_library(QX_Toolkit QX_Encoding toolkit dev)
  set(QX_PC_TOOLKIT "Requires: QX_Toolkit = ${PROJECT_VERSION}")
  qx_install_pc(QX_Toolkit dev)
else()
  get_target_property(is_installed QX::Toolkit IMPORTED)
  if(NOT is_installed)
    message(FATAL_ERROR "QX_INSTALL takes a libQX_Toolkit that is installed, and QX::Toolkit is built here")
  endif()
  set(QX_PC_TOOLKIT_LIBS " -lQX_Toolkit")
  install(FILES cmake/QxHostToolkit.cmake DESTINATION ${QX_PACKAGE_DIR} COMPONENT dev)
endif()
qx_install_pc(QX_Encoding dev)
install(DIRECTORY include/Encoding include/Toolkit DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
qx_install_package(QX_Encoding ${QX_PACKAGE_DIR} dev)

# libQX_Messages takes neither of the others, so it has a package of its own, which QX_Encoding's finds as well.
qx_install_library(QX_Messages QX_Messages messages messages_dev)
qx_install_pc(QX_Messages messages_dev)
install(DIRECTORY include/Messages DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT messages_dev)
qx_install_package(QX_Messages ${QX_MESSAGES_PACKAGE_DIR} messages_dev)

if(TARGET qx_messages_sqlite)
  install(TARGETS qx_messages_sqlite LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT sqlite)
endif()
if(QX_BUILD_TOOLS)
  install(TARGETS qxpdu RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  set(man_page tools/qxpdu/qxpdu.1)
  if(QX_DEBIAN_PACKAGES)
    file(READ ${man_page} text)
    set(man_page ${PROJECT_BINARY_DIR}/debian/qxpdu.1)
    qx_write_compressed(${man_page} "${text}")
    string(APPEND man_page .gz)
  endif()
  install(FILES ${man_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
  install(FILES docs/qxpdu-json.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/qxpdu COMPONENT tool)
  install(DIRECTORY docs/schema DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/qxpdu COMPONENT tool)
  install(FILES tools/qxpdu/completions/qxpdu.bash RENAME qxpdu
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
  install(FILES tools/qxpdu/completions/_qxpdu
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${QX_ZSH_FOLDER} COMPONENT tool)
  install(FILES tools/qxpdu/completions/qxpdu.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tool)
endif()
