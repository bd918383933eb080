# What is installed, and in which Debian package each part of it goes: libraries, development files, tool.
include(CMakePackageConfigHelpers)

set(QX_ZSH_FOLDER site-functions CACHE STRING "Folder of zsh's that takes the completion; Debian's is another")
set(QX_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QX_Encoding)
set(QX_PC_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH QX_PREFIX_FROM_PC ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})

function(qx_install_library target component)
  install(TARGETS ${target} EXPORT QX_EncodingTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component} NAMELINK_COMPONENT dev)
endfunction()

function(qx_install_pc name)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${QX_PC_DIR} COMPONENT dev)
endfunction()

qx_install_library(QX_Encoding encoding)
if(QX_BUNDLED_TOOLKIT)
  qx_install_library(QX_Toolkit toolkit)
  set(QX_PC_TOOLKIT "Requires: QX_Toolkit = ${PROJECT_VERSION}")
  qx_install_pc(QX_Toolkit)
else()
  get_target_property(is_installed QX::Toolkit IMPORTED)
  if(NOT is_installed)
    message(FATAL_ERROR "QX_INSTALL takes a libQX_Toolkit that is installed, and QX::Toolkit is built here")
  endif()
  set(QX_PC_TOOLKIT_LIBS " -lQX_Toolkit")
  install(FILES cmake/QxHostToolkit.cmake DESTINATION ${QX_PACKAGE_DIR} COMPONENT dev)
endif()
qx_install_pc(QX_Encoding)

install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev FILES_MATCHING PATTERN "*.h"
  PATTERN Messages EXCLUDE)
install(EXPORT QX_EncodingTargets NAMESPACE QX:: DESTINATION ${QX_PACKAGE_DIR} COMPONENT dev)
configure_package_config_file(cmake/QX_EncodingConfig.cmake.in QX_EncodingConfig.cmake
  INSTALL_DESTINATION ${QX_PACKAGE_DIR} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(QX_EncodingConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QX_EncodingConfig.cmake ${PROJECT_BINARY_DIR}/QX_EncodingConfigVersion.cmake
  DESTINATION ${QX_PACKAGE_DIR} COMPONENT dev)

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
  install(FILES tools/qxpdu/completions/qxpdu.bash RENAME qxpdu
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
  install(FILES tools/qxpdu/completions/_qxpdu
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${QX_ZSH_FOLDER} COMPONENT tool)
  install(FILES tools/qxpdu/completions/qxpdu.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tool)
endif()
