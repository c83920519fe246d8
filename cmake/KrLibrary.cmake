# How every library of this project is made: a shared target with a Kr:: alias, a generated export
# header, its public headers as a header set, a version and a place in an export set.
include(GenerateExportHeader)

find_program(KR_CCACHE ccache)
if(KR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # With these the cache works with a precompiled header too.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${KR_CCACHE}")
endif()

# Binaries find the libraries beside them, in the build tree and after an install.
function(kr_rpath)
    set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}:$ORIGIN" PARENT_SCOPE)
endfunction()

# The switches that every Kr library needs beyond the directory defaults.
function(kr_finish_library target name headerBase)
    cmake_parse_arguments(ARG "" "EXPORT_SET" "HEADERS" ${ARGN})
    string(REGEX REPLACE "^Kr" "" alias "${name}")
    add_library(Kr::${alias} ALIAS ${target})
    generate_export_header(${target} BASE_NAME ${name}
        EXPORT_MACRO_NAME ${name}_EXPORT
        EXPORT_FILE_NAME "${CMAKE_CURRENT_BINARY_DIR}/include/${name}/${name}Export.h")
    target_sources(${target} PUBLIC FILE_SET HEADERS
        BASE_DIRS "${headerBase}" "${CMAKE_CURRENT_BINARY_DIR}/include"
        FILES ${ARG_HEADERS} "${CMAKE_CURRENT_BINARY_DIR}/include/${name}/${name}Export.h")
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${alias}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    install(TARGETS ${target} EXPORT ${ARG_EXPORT_SET}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endfunction()

# kr_add_platform_library(NAME HEADERS ... SOURCES ... PUBLIC ... PRIVATE ...)
# Headers stand in include/NAME/, sources in src/; PUBLIC and PRIVATE are link libraries.
function(kr_add_platform_library name)
    cmake_parse_arguments(ARG "" "" "HEADERS;SOURCES;PUBLIC;PRIVATE" ${ARGN})
    list(TRANSFORM ARG_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/include/${name}/")
    list(TRANSFORM ARG_SOURCES PREPEND "src/")
    add_library(${name} SHARED ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    kr_finish_library(${name} ${name} "${CMAKE_CURRENT_SOURCE_DIR}/include"
        EXPORT_SET KrPlatformTargets HEADERS ${ARG_HEADERS})
endfunction()

# kr_install_package(NAME CONFIG-TEMPLATE EXPORT-SET)
function(kr_install_package name template exportSet)
    include(CMakePackageConfigHelpers)
    set(destination "${CMAKE_INSTALL_LIBDIR}/cmake/${name}")
    configure_package_config_file("${template}" "${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake"
        INSTALL_DESTINATION "${destination}")
    write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake"
        COMPATIBILITY SameMinorVersion)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake"
        "${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake" DESTINATION "${destination}")
    install(EXPORT ${exportSet} NAMESPACE Kr:: DESTINATION "${destination}")
endfunction()
