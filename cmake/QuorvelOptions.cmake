# The compiler options of every target of the project. Targets link them privately, so that no consumer gets them.
add_library(quorvel_options INTERFACE)
target_compile_features(quorvel_options INTERFACE cxx_std_20)
target_include_directories(quorvel_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(quorvel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wnon-virtual-dtor -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 wrongly reports inlined std::string concatenation as overlapping copies.
  target_compile_options(quorvel_options INTERFACE -Wno-restrict)
endif()
if(NOT WIN32)
  # No program replaces a function of the component's libraries, so calls within one library can be direct.
  target_compile_options(quorvel_options INTERFACE -fno-semantic-interposition)
endif()
if(WIN32)
  target_compile_definitions(quorvel_options INTERFACE UNICODE _UNICODE NOMINMAX)
endif()
if(QUORVEL_WARNINGS_AS_ERRORS)
  target_compile_options(quorvel_options INTERFACE -Werror)
endif()
if(QUORVEL_SANITIZE)
  target_compile_options(quorvel_options INTERFACE
    -fsanitize=${QUORVEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quorvel_options INTERFACE -fsanitize=${QUORVEL_SANITIZE})
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # With these settings clones in different folders share what one of them has compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
endif()

# quorvel_library(<name> <sources>...): one static library per folder, with the project's options.
function(quorvel_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PRIVATE quorvel_options)
endfunction()

# The same for a folder whose sources include the toolkit: they share the precompiled headers of quorvel_wx. Precompiled
# standard headers for all folders would save more, but GCC 12 then reports false overflows in std::string.
function(quorvel_toolkit_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PRIVATE quorvel_options)
  if(NOT name STREQUAL quorvel_wx)
    target_precompile_headers(${name} REUSE_FROM quorvel_wx)
  endif()
endfunction()
