# Finds the headers of utf8cpp wherever its package puts them. The package's own configuration is tied to the word size
# of the machine that it is installed on, though there is nothing in it but headers.
find_path(utf8cpp_INCLUDE_DIR utf8/checked.h PATHS /usr/include/utf8cpp NO_CMAKE_FIND_ROOT_PATH NO_DEFAULT_PATH)
find_path(utf8cpp_INCLUDE_DIR utf8/checked.h PATH_SUFFIXES utf8cpp)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(utf8cpp REQUIRED_VARS utf8cpp_INCLUDE_DIR)

if(utf8cpp_FOUND AND NOT TARGET utf8cpp)
  add_library(utf8cpp INTERFACE IMPORTED)
  target_include_directories(utf8cpp INTERFACE ${utf8cpp_INCLUDE_DIR})
endif()
if(utf8cpp_FOUND AND NOT TARGET utf8::cpp)
  add_library(utf8::cpp ALIAS utf8cpp)
endif()
