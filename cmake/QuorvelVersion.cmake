# The version is in project(VERSION); everything else takes it from there. The first heading of the change log must agree, and
# has the day of the release, which files in packages get as their time: a build of the same sources gives the same bytes.
# Sets QUORVEL_RELEASE_TIME, in seconds since 1970. SOURCE_DATE_EPOCH of the environment replaces it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md heading REGEX "^## " LIMIT_COUNT 1)
if(NOT heading MATCHES "^## ([0-9.]+) \\(([0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9])\\)$"
    OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR
    "CHANGELOG.md begins with \"${heading}\", and not with \"## ${PROJECT_VERSION} (YYYY-MM-DD)\" for the version in CMakeLists.txt.")
endif()
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  set(releaseTime $ENV{SOURCE_DATE_EPOCH})
else()
  execute_process(COMMAND date -u -d ${CMAKE_MATCH_2} +%s
    OUTPUT_VARIABLE releaseTime OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
set(QUORVEL_RELEASE_TIME ${releaseTime} CACHE INTERNAL "The time of all files in packages")
