# Writes parts.txt, the list of what is linked into Quorvel.dll, for scripts/windows-package. packaging/parts-list.sh says what
# its columns are. Each version comes from what the build uses.
execute_process(COMMAND ${wxWidgets_CONFIG_EXECUTABLE} --version
  OUTPUT_VARIABLE wx OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

file(STRINGS ${fmt_DIR}/../../../include/fmt/core.h fmt REGEX "^#define FMT_VERSION ")
if(NOT fmt MATCHES "([0-9]+)([0-9][0-9])([0-9][0-9])$")
  message(FATAL_ERROR "{fmt} has no version: ${fmt}")
endif()
math(EXPR fmtMinor ${CMAKE_MATCH_2})
math(EXPR fmtPatch ${CMAKE_MATCH_3})
set(fmt ${CMAKE_MATCH_1}.${fmtMinor}.${fmtPatch})

execute_process(COMMAND ${CMAKE_CXX_COMPILER} -x c -E -dM -include _mingw.h /dev/null
  OUTPUT_VARIABLE macros COMMAND_ERROR_IS_FATAL ANY)
foreach(place IN ITEMS MAJOR MINOR BUGFIX)
  if(NOT macros MATCHES "#define __MINGW64_VERSION_${place} ([0-9]+)")
    message(FATAL_ERROR "The headers of mingw-w64 have no __MINGW64_VERSION_${place}.")
  endif()
  list(APPEND mingw ${CMAKE_MATCH_1})
endforeach()
list(JOIN mingw . mingw)

file(WRITE ${PROJECT_BINARY_DIR}/parts.txt
  "SQLite|${SQLite3_VERSION}|blessing|SQLite developers|static\n"
  "wxWidgets|${wx}|LGPL-2.0-or-later WITH WxWindows-exception-3.1|wxWidgets developers|static\n"
  "fmt|${fmt}|MIT|fmt contributors|headers\n"
  "libstdc++, libgcc and libssp|${CMAKE_CXX_COMPILER_VERSION}|GPL-3.0-or-later WITH GCC-exception-3.1|Free Software Foundation|static\n"
  "mingw-w64 runtime|${mingw}|ZPL-2.1|mingw-w64 developers|static\n"
  "winpthreads|${mingw}|MIT AND BSD-3-Clause|mingw-w64 developers|static\n")
