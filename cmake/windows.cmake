# Shared by both Windows toolchains, which first set QUORVEL_WINDOWS_ARCHITECTURE (x64 or x86) and QUORVEL_WINDOWS_TRIPLE.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_CXX_COMPILER ${QUORVEL_WINDOWS_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${QUORVEL_WINDOWS_TRIPLE}-windres)

# A host registers one file, so the compiler's libraries are linked statically.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")

execute_process(
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/../scripts/windows-libraries --where ${QUORVEL_WINDOWS_ARCHITECTURE}
  OUTPUT_VARIABLE libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(CMAKE_FIND_ROOT_PATH /usr/${QUORVEL_WINDOWS_TRIPLE})
foreach(library IN ITEMS sqlite fmt wx)
  if(NOT EXISTS ${libraries}/${library})
    message(FATAL_ERROR "Run scripts/windows-libraries ${QUORVEL_WINDOWS_ARCHITECTURE} first: it builds the libraries.")
  endif()
  list(APPEND CMAKE_FIND_ROOT_PATH ${libraries}/${library})
endforeach()
# The configuration of the wxWidgets for Windows. Without this line CMake finds the one of this machine.
set(wxWidgets_CONFIG_EXECUTABLE ${libraries}/wx/bin/wx-config CACHE FILEPATH "wx-config of the Windows build" FORCE)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
