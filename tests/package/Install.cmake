# Installs the build into a prefix of its own and compares the library's headers with the list.
file(REMOVE_RECURSE "${WORK}/prefix")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB headers RELATIVE "${WORK}/prefix/include/KrParameterInstance"
    "${WORK}/prefix/include/KrParameterInstance/*")
file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/headers.txt" expected)
if(NOT headers STREQUAL expected)
    message(FATAL_ERROR "Installed headers: ${headers}\nExpected: ${expected}")
endif()
