# kr_add_test(NAME SOURCE [LIBRARIES ...] [GERMAN])
# One QtTest executable per class. Every test runs without a display under the C locale; GERMAN adds
# a second run under de_DE.UTF-8 (Qt's system locale follows the variable even where that locale is
# not installed).
function(kr_add_test name source)
    cmake_parse_arguments(ARG "GERMAN" "" "LIBRARIES" ${ARGN})
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LIBRARIES})
    # A test runs once, compiling it takes longer: what it tests is optimized, it is not.
    target_compile_options(${name} PRIVATE -O0)
    set_target_properties(${name} PROPERTIES KR_UNOPTIMIZED TRUE)
    # Nearly always empty.
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp"
        PROPERTIES SKIP_PRECOMPILE_HEADERS TRUE)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C" TIMEOUT 300)
    if(ARG_GERMAN)
        add_test(NAME ${name}.de COMMAND ${name})
        set_tests_properties(${name}.de PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=de_DE.UTF-8" TIMEOUT 300)
    endif()
endfunction()
