# The library exports its entry points and nothing else, and has the name that hosts are linked to.
set(expected DllCanUnloadNow DllGetClassObject QuorvelCreate)
set(soname libquorvel.so.5)

execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" symbols "${symbols}")
list(TRANSFORM symbols REPLACE " .*" "")
list(SORT symbols)
if(NOT symbols STREQUAL expected)
  message(FATAL_ERROR "${LIBRARY} exports ${symbols} and should export ${expected}")
endif()

execute_process(COMMAND ${READELF} -d ${LIBRARY} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "\\(SONAME\\)[^\n]*\\[([^\n]*)\\]" OR NOT CMAKE_MATCH_1 STREQUAL soname)
  message(FATAL_ERROR "${LIBRARY} is named '${CMAKE_MATCH_1}' and should be named '${soname}'")
endif()
