# The toolkit that windows are made with, as the target quorvel_toolkit: what compiling and linking against wxWidgets takes,
# and elsewhere than on Windows GTK, which tells assistive technology about controls.
find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
if(WIN32)
  # A program says itself whether it has a console.
  list(REMOVE_ITEM wxWidgets_LIBRARIES -Wl,--subsystem,windows -mwindows)
endif()
add_library(quorvel_toolkit INTERFACE)
target_include_directories(quorvel_toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_compile_definitions(quorvel_toolkit INTERFACE ${wxWidgets_DEFINITIONS})
target_link_libraries(quorvel_toolkit INTERFACE ${wxWidgets_LIBRARIES})
if(NOT WIN32)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0)
  target_link_libraries(quorvel_toolkit INTERFACE PkgConfig::GTK3)
endif()
