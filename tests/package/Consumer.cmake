# Builds the consumer against the install and runs it with every shipped description.
include("${CMAKE_CURRENT_LIST_DIR}/Build.cmake")
kr_build("${CMAKE_CURRENT_LIST_DIR}/consumer" "${WORK}/consumer")

file(GLOB descriptions "${SOURCE}/devices/*.json")
list(FILTER descriptions EXCLUDE REGEX "schema\\.json$")
if(NOT descriptions)
    message(FATAL_ERROR "No shipped description in ${SOURCE}/devices")
endif()
foreach(description IN LISTS descriptions)
    execute_process(COMMAND "${WORK}/consumer/consumer" "${description}"
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
