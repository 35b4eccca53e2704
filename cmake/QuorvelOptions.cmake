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
# A release names no folder of the machine that built it. The last map that fits a path holds.
target_compile_options(quorvel_options INTERFACE
  "$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.;-ffile-prefix-map=${PROJECT_BINARY_DIR}=build>")
if(WIN32)
  target_compile_definitions(quorvel_options INTERFACE UNICODE _UNICODE NOMINMAX)
  # Sections that begin at pages of the file are mapped. Wine reads and copies all others when it loads the file.
  target_link_options(quorvel_options INTERFACE -Wl,--file-alignment,4096)
endif()
if(QUORVEL_WARNINGS_AS_ERRORS)
  target_compile_options(quorvel_options INTERFACE -Werror)
endif()
if(QUORVEL_SANITIZE)
  target_compile_options(quorvel_options INTERFACE
    -fsanitize=${QUORVEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quorvel_options INTERFACE -fsanitize=${QUORVEL_SANITIZE})
endif()

# A shared library names what it needs, or it is not linked. Clang's sanitizers have their functions in the program only.
if(NOT QUORVEL_SANITIZE)
  set(QUORVEL_NO_UNDEFINED -Wl,--no-undefined)
endif()

# quorvel_harden(<target>): what links the target makes a fault of memory hard to use for an attack. Only optimized builds
# without sanitizers: FORTIFY needs the optimizer, and the sanitizers find more themselves.
function(quorvel_harden target)
  if(QUORVEL_SANITIZE)
    return()
  endif()
  set(compile
    # A function with a buffer ends the program when something has written past it to the return address.
    -fstack-protector-strong
    # The C library's functions that write to a buffer of known size check it. Distributions set other levels.
    -U_FORTIFY_SOURCE)
  if(WIN32)
    list(APPEND compile -D_FORTIFY_SOURCE=2)
    # Links the library of both statically.
    target_link_options(${target} INTERFACE -fstack-protector-strong)
    # The addresses of code and data change with each start, and data cannot be run. A time in the file would make each build
    # differ.
    set(link -Wl,--dynamicbase -Wl,--nxcompat -Wl,--no-insert-timestamp)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
      list(APPEND link -Wl,--high-entropy-va)
    else()
      # Exceptions of C++ use no handlers on the stack here, so the system need accept none of this file.
      list(APPEND link -Wl,--no-seh)
    endif()
  else()
    list(APPEND compile
      # Sizes that are known only while the program runs count as well.
      -D_FORTIFY_SOURCE=3
      # A large local variable cannot jump over the guard page below the stack.
      -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
      # Indirect jumps reach only marked places, on processors that check it.
      list(APPEND compile -fcf-protection)
    endif()
    # All addresses are looked up at the start, and their table is read-only afterwards. Data and stack cannot be run.
    set(link -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
  endif()
  set(optimized $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(${target} INTERFACE "$<${optimized}:${compile}>")
  target_link_options(${target} INTERFACE "$<${optimized}:${link}>")
endfunction()
quorvel_harden(quorvel_options)

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Makes the linker follow: programs get other addresses with each start, too.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
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
  if(WIN32)
    quorvel_join_sources(${name} ${ARGN})
  endif()
endfunction()

# The Windows builds compile up to ten sources of a folder as one, because most of the time goes into their headers. Sources that
# only Windows has stay alone, because scripts/tidy needs the options and headers of each. The release build compiles every
# source alone, so that each includes what it uses.
function(quorvel_join_sources name)
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 10)
  list(FILTER ARGN INCLUDE REGEX "^(windows|msw)/")
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# The same for a folder whose sources include the toolkit: they share the precompiled headers of quorvel_wx. Precompiled
# standard headers for all folders would save more, but GCC 12 then reports false overflows in std::string.
function(quorvel_toolkit_library name)
  quorvel_library(${name} ${ARGN})
  if(NOT name STREQUAL quorvel_wx)
    target_precompile_headers(${name} REUSE_FROM quorvel_wx)
  endif()
endfunction()
