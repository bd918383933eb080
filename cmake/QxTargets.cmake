# How every target of the project is built: one language level, one set of warnings, hardened, hidden visibility.
include(CheckCXXCompilerFlag)

set(QX_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND QX_WARNINGS -Wno-restrict) # g++ 12 sees overlaps inside std::string's operator+ that are not there
endif()

# What an optimised build is hardened with. A sanitizer looks at more, and would not get along with it.
set(QX_HARDENING -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wformat -Werror=format-security)
foreach(option IN ITEMS -fstack-clash-protection -fcf-protection) # not for every machine
  string(MAKE_C_IDENTIFIER "QX_HAS${option}" has)
  check_cxx_compiler_flag(${option} ${has})
  if(${has})
    list(APPEND QX_HARDENING ${option})
  endif()
endforeach()

# g++ sets and copies hundreds of octets by an instruction that takes tens of cycles to begin, where the C library has a
# quicker way for every machine. Not asked of compilers that do not know the words.
set(QX_TUNING)
foreach(what IN ITEMS memset memcpy)
  check_cxx_compiler_flag(-m${what}-strategy=vector_loop:256:noalign,libcall:-1:noalign QX_HAS_${what}_STRATEGY)
  if(QX_HAS_${what}_STRATEGY)
    list(APPEND QX_TUNING -m${what}-strategy=vector_loop:256:noalign,libcall:-1:noalign)
  endif()
endforeach()

# qx_harden(target): what is no part of a shared library becomes part of a position-independent executable.
function(qx_harden target)
  if(EMSCRIPTEN)
    return() # WebAssembly has its own walls: no stack to smash, no address to guess
  endif()
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  set(shared $<BOOL:$<TARGET_PROPERTY:${target},POSITION_INDEPENDENT_CODE>>)
  set(executable $<STREQUAL:$<TARGET_PROPERTY:${target},TYPE>,EXECUTABLE>)
  target_compile_options(${target} PRIVATE "$<${optimised}:${QX_HARDENING}>"
    $<$<AND:${optimised},$<NOT:${shared}>>:-fPIE>)
  target_link_options(${target} PRIVATE $<${optimised}:-Wl,-z,relro,-z,now>
    $<$<AND:${optimised},${executable}>:-pie>)
endfunction()

# qx_compile_options(target [STANDARD 17]): C++20 unless another level is named.
function(qx_compile_options target)
  cmake_parse_arguments(arg "" "STANDARD" "" ${ARGN})
  if(NOT arg_STANDARD)
    set(arg_STANDARD 20)
  endif()
  target_compile_features(${target} PRIVATE cxx_std_${arg_STANDARD})
  target_compile_options(${target} PRIVATE ${QX_WARNINGS})
  if(QX_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(QX_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${QX_SANITIZE} -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${QX_SANITIZE})
  else()
    qx_harden(${target})
  endif()
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# A module of WebAssembly has its libraries linked into it.
set(QX_LOADED_ANYWHERE ON)
if(EMSCRIPTEN)
  set(QX_LOADED_ANYWHERE OFF)
endif()

# What is linked into a shared library, and shows only what it marks.
function(qx_hidden target)
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ${QX_LOADED_ANYWHERE}
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fno-gnu-unique -fno-semantic-interposition -fno-plt ${QX_TUNING})
  endif()
endfunction()

# A shared library that shows only what its headers mark, names every symbol it needs, and that dlclose can
# really unmap.
function(qx_shared_library target)
  qx_compile_options(${target})
  qx_hidden(${target})
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH $ORIGIN)
  # clang leaves the sanitizers' runtime to the executable, so its symbols stay open there.
  if(NOT (QX_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES "Clang"))
    target_link_options(${target} PRIVATE -Wl,-z,defs)
  endif()
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} INTERFACE cxx_std_17)
endfunction()
