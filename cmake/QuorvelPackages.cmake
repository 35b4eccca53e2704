# Says how `cpack` makes one Debian package of each installed component.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_CONTACT "Quorvel developers <quorvel@localhost>")
# Each package has its own description. A common summary would be put in front of it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime windows development tools)
if(TARGET quorvel_sample)
  list(APPEND CPACK_COMPONENTS_ALL sample)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The core is not in the list that says which package brings which library. Only the packages here link it, and they depend on
# the package of the same version.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Packs the packages again, with the lists of their parts and without traces of this build.
set(CPACK_POST_BUILD_SCRIPTS ${builtPackage}/FinishPackages.cmake)
configure_file(${CMAKE_CURRENT_LIST_DIR}/FinishPackages.cmake.in ${builtPackage}/FinishPackages.cmake @ONLY)
# The libraries of which only headers are compiled in; finish-package.sh finds the shared ones.
file(WRITE ${builtPackage}/parts.txt
  "quorvel|CLI11|${CLI11_VERSION}|BSD-3-Clause|CLI11 developers|headers\n"
  "quorvel|nlohmann-json|${nlohmann_json_VERSION}|MIT|Niels Lohmann|headers\n")

set(controlFiles ${PROJECT_SOURCE_DIR}/packaging/debian)
set(libraryPackage libquorvel${PROJECT_VERSION_MAJOR})
set(windowsPackage ${libraryPackage}-windows)
set(sameVersion "${libraryPackage} (= ${PROJECT_VERSION})")

# debian_documents(<component> <package>): installs the documents that every package has. Only packages have their folder; a
# plain install, which names no component, leaves it out.
function(debian_documents component package)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
  execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    OUTPUT_FILE ${builtPackage}/changelog.gz COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${controlFiles}/copyright ${builtPackage}/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package} COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

# settings_removal(<package> <other>): the script that removes the settings with the last of the two packages.
function(settings_removal package other)
  configure_file(${controlFiles}/postrm.in ${builtPackage}/${package}/postrm @ONLY)
endfunction()

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${libraryPackage})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "tdsodbc, ${windowsPackage}")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION}
A component that a host program loads to show, add, change and delete remarks
on one of its records. They are kept in the host's own database on a SQL
Server, for which it takes an ODBC driver, or in a file.")
settings_removal(${libraryPackage} quorvel)
file(CONFIGURE OUTPUT ${builtPackage}/${libraryPackage}/shlibs @ONLY
  CONTENT "libquorvel @PROJECT_VERSION_MAJOR@ @libraryPackage@ (>= @PROJECT_VERSION@)\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${builtPackage}/${libraryPackage}/shlibs ${builtPackage}/${libraryPackage}/postrm
  ${controlFiles}/postinst ${controlFiles}/triggers)
debian_documents(runtime ${libraryPackage})

set(CPACK_DEBIAN_WINDOWS_PACKAGE_NAME ${windowsPackage})
set(CPACK_DEBIAN_WINDOWS_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_DEPENDS ${sameVersion})
set(CPACK_DEBIAN_WINDOWS_DESCRIPTION "${PROJECT_DESCRIPTION} - windows
The windows in which users read and write remarks. The library loads them when
a host opens one; machines without a desktop do without.")
configure_file(${controlFiles}/postinst ${builtPackage}/${windowsPackage}/postrm COPYONLY)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_CONTROL_EXTRA
  ${builtPackage}/${windowsPackage}/postrm ${controlFiles}/postinst ${controlFiles}/triggers)
debian_documents(windows ${windowsPackage})

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libquorvel-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ${sameVersion})
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${PROJECT_DESCRIPTION} - development files
Headers, interface definition, an example, and what CMake and pkg-config need
to build a host.")
debian_documents(development libquorvel-dev)
# The guide's links lead to files of the source tree. In the package they lead to those that it brings; the others become text.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/host-guide.md)
file(READ ${PROJECT_SOURCE_DIR}/docs/host-guide.md guide)
string(REPLACE "](../include/" "](/usr/include/" guide "${guide}")
string(REPLACE "](../host/example)" "](examples/)" guide "${guide}")
string(REGEX REPLACE "\\[([^]\n]+)\\]\\([a-z.][^/)]*\\.md[^)]*\\)" "\\1" guide "${guide}")
file(WRITE ${builtPackage}/host-guide.md "${guide}")
install(FILES ${builtPackage}/host-guide.md
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libquorvel-dev COMPONENT development EXCLUDE_FROM_ALL)
install(FILES ${PROJECT_SOURCE_DIR}/host/example/remarks.cpp ${PROJECT_SOURCE_DIR}/host/example/CMakeLists.txt
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libquorvel-dev/examples COMPONENT development EXCLUDE_FROM_ALL)

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME quorvel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION database)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS ${sameVersion})
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS tdsodbc)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "${PROJECT_DESCRIPTION} - command line
Sets the database up, finds out what stands between this machine and its
remarks, lists and edits them.")
settings_removal(quorvel ${libraryPackage})
set(CPACK_DEBIAN_TOOLS_PACKAGE_CONTROL_EXTRA ${builtPackage}/quorvel/postrm)
debian_documents(tools quorvel)

if(TARGET quorvel_sample)
  set(CPACK_DEBIAN_SAMPLE_PACKAGE_NAME quorvel-sample)
  set(CPACK_DEBIAN_SAMPLE_PACKAGE_SECTION database)
  set(CPACK_DEBIAN_SAMPLE_PACKAGE_DEPENDS "${sameVersion}, ${windowsPackage} (= ${PROJECT_VERSION})")
  set(CPACK_DEBIAN_SAMPLE_DESCRIPTION "${PROJECT_DESCRIPTION} - sample host
A small business application with customers and orders, to see the windows
for remarks in.")
  debian_documents(sample quorvel-sample)
endif()

include(CPack)
