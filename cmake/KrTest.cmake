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
    # One source with one class: cheaper than a scan of every test's sources and headers.
    get_filename_component(stem ${source} NAME_WE)
    set(moc "${CMAKE_CURRENT_BINARY_DIR}/${name}_moc/${stem}.moc")
    qt6_generate_moc("${CMAKE_CURRENT_SOURCE_DIR}/${source}" "${moc}" TARGET ${name})
    target_sources(${name} PRIVATE "${moc}")
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${name}_moc")
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C" TIMEOUT 300)
    if(ARG_GERMAN)
        add_test(NAME ${name}.de COMMAND ${name})
        set_tests_properties(${name}.de PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=de_DE.UTF-8" TIMEOUT 300)
    endif()
endfunction()

# kr_renew_golden_files(NAME FUNCTION ...)
# The target renew_golden_files runs these functions of a test, which then write the files of
# tests/data/ that they compare with. It is no part of the build, and CTest never renews.
function(kr_renew_golden_files name)
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "KR_RENEW_GOLDEN_FILES=")
    if(NOT TARGET renew_golden_files)
        add_custom_target(renew_golden_files)
    endif()
    add_custom_target(renew_golden_files_of_${name}
        COMMAND "${CMAKE_COMMAND}" -E env KR_RENEW_GOLDEN_FILES=1 QT_QPA_PLATFORM=offscreen LC_ALL=C
            $<TARGET_FILE:${name}> ${ARGN}
        VERBATIM)
    add_dependencies(renew_golden_files renew_golden_files_of_${name})
endfunction()
