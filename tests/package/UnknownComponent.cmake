# A component that the platform lacks is refused where it is asked for, with its name.
file(WRITE "${WORK}/unknown/CMakeLists.txt" "
cmake_minimum_required(VERSION 3.25)
project(Unknown LANGUAGES CXX)
find_package(KrPlatform REQUIRED COMPONENTS Datatype Unknown)
")
execute_process(COMMAND "${CMAKE_COMMAND}" -S "${WORK}/unknown" -B "${WORK}/unknown/build"
    -G "${GENERATOR}" "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_PREFIX_PATH=${WORK}/prefix"
    RESULT_VARIABLE result ERROR_VARIABLE error OUTPUT_QUIET)
if(result EQUAL 0 OR NOT error MATCHES "Unknown")
    message(FATAL_ERROR "A project with an unknown component was configured: ${error}")
endif()
