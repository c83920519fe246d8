# kr_build(SOURCE BUILD [OPTION...]): configures a project against the prefix and builds it.
function(kr_build source build)
    file(REMOVE_RECURSE "${build}")
    execute_process(COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}"
        "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}"
        "-DCMAKE_PREFIX_PATH=${WORK}/prefix" ${ARGN}
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND "${CMAKE_COMMAND}" --build "${build}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()
