# QX::Toolkit where a host brings its own: the target that the host has made already, or the library libQX_Toolkit
# that is found in QX_TOOLKIT_HINTS or along CMAKE_PREFIX_PATH, or the one that QX_TOOLKIT_LIBRARY names.
if(NOT TARGET QX::Toolkit)
  find_library(QX_TOOLKIT_LIBRARY QX_Toolkit HINTS ${QX_TOOLKIT_HINTS} DOC "The host's own libQX_Toolkit")
  if(QX_TOOLKIT_LIBRARY)
    add_library(QX::Toolkit SHARED IMPORTED GLOBAL)
    set_target_properties(QX::Toolkit PROPERTIES IMPORTED_LOCATION ${QX_TOOLKIT_LIBRARY})
  endif()
endif()
