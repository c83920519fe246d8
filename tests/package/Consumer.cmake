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

# The installed command line finds its libraries, the shipped descriptions and its translations.
execute_process(COMMAND "${WORK}/prefix/bin/krparameter" --device two-axis-drive --lang en get H00
    OUTPUT_VARIABLE shown COMMAND_ERROR_IS_FATAL ANY)
if(NOT shown MATCHES "Current limit")
    message(FATAL_ERROR "The installed krparameter shows no current limit: ${shown}")
endif()
