# Defines the target quorvel_toolkit: wxWidgets, the toolkit that windows are made with. On Linux also GTK, which describes
# controls to assistive technology.
find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
if(WIN32)
  # Each program decides whether it has a console.
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
