set(CMAKE_SYSTEM_PROCESSOR X86)
set(QUORVEL_WINDOWS_ARCHITECTURE x86)
set(QUORVEL_WINDOWS_TRIPLE i686-w64-mingw32)
# SSE, because the old coprocessor computes with more digits than a double keeps. Hosts align the stack less than SSE needs.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
