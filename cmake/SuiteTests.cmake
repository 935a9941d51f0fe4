# Registers a GoogleTest program in ctest by its suites, read from the program when ctest starts: a process for
# each case would spend most of its time on starting Qt and on looking for leaks. The cases of the suites named
# by SPLIT are entries of their own, so that long ones run side by side.
#   suite_tests(TARGET PREFIX [SPLIT REGEX] [SERIAL REGEX] [ENVIRONMENT NAME=VALUE...])
function(suite_tests target prefix)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "SPLIT;SERIAL" "ENVIRONMENT")
    set(file "${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake")
    file(GENERATE OUTPUT "${file}" CONTENT "
set(program [==[$<TARGET_FILE:${target}>]==])
set(prefix [==[${prefix}]==])
set(split [==[${arg_SPLIT}]==])
set(serial [==[${arg_SERIAL}]==])
set(environment [==[${arg_ENVIRONMENT}]==])
include([==[${CMAKE_SOURCE_DIR}/cmake/ListSuites.cmake]==])
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${file}")
endfunction()
