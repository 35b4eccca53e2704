# widl makes the type library from the IDL. The imported files come from Wine's development package: mingw-w64 has the headers
# of the system's interfaces but not their IDL and library files.
find_program(QUORVEL_WIDL ${QUORVEL_WINDOWS_TRIPLE}-widl)
find_program(QUORVEL_FAKETIME faketime)
find_path(QUORVEL_SYSTEM_IDL oaidl.idl
  PATHS /usr/include/wine/wine/windows /usr/include/wine/windows NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
find_path(QUORVEL_SYSTEM_TYPE_LIBRARIES stdole2.tlb
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
if(NOT QUORVEL_WIDL)
  message(FATAL_ERROR "There is no ${QUORVEL_WINDOWS_TRIPLE}-widl: install mingw-w64-tools.")
endif()
if(NOT QUORVEL_FAKETIME)
  message(FATAL_ERROR "There is no faketime: install it.")
endif()
if(NOT QUORVEL_SYSTEM_IDL)
  message(FATAL_ERROR "There is no oaidl.idl: install libwine-dev, or set QUORVEL_SYSTEM_IDL to its folder.")
endif()
if(NOT QUORVEL_SYSTEM_TYPE_LIBRARIES)
  message(FATAL_ERROR "There is no stdole2.tlb: install libwine, or set QUORVEL_SYSTEM_TYPE_LIBRARIES to its folder.")
endif()

# quorvel_type_library(<output> <idl>): adds a rule that makes a type library for the target machine. widl writes the time into it,
# so widl is given the release's.
execute_process(COMMAND date -u -d @${QUORVEL_RELEASE_TIME} "+%Y-%m-%d %H:%M:%S"
  OUTPUT_VARIABLE QUORVEL_RELEASE_CLOCK OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
function(quorvel_type_library output idl)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -E env TZ=UTC ${QUORVEL_FAKETIME} -f ${QUORVEL_RELEASE_CLOCK}
      ${QUORVEL_WIDL} -t -I ${QUORVEL_SYSTEM_IDL} -L ${QUORVEL_SYSTEM_TYPE_LIBRARIES} -o ${output} ${idl}
    DEPENDS ${idl}
    VERBATIM)
endfunction()
