# Compiles the headers that nearly every source includes once for the whole tree. A source still includes
# what it uses: static analysis reads it without the precompiled header.

# Every target that compiles sources of its own in this directory and below.
function(kr_collect_targets directory result)
    get_property(found DIRECTORY "${directory}" PROPERTY BUILDSYSTEM_TARGETS)
    get_property(below DIRECTORY "${directory}" PROPERTY SUBDIRECTORIES)
    set(targets)
    foreach(target IN LISTS found)
        get_target_property(type ${target} TYPE)
        if(type MATCHES "^(EXECUTABLE|(SHARED|STATIC|OBJECT)_LIBRARY)$")
            list(APPEND targets ${target})
        endif()
    endforeach()
    foreach(each IN LISTS below)
        kr_collect_targets("${each}" more)
        list(APPEND targets ${more})
    endforeach()
    set(${result} ${targets} PARENT_SCOPE)
endfunction()

# kr_add_precompiled_header(NAME [OPTION...]): Qt Core and the standard library alone. What is defined for
# other modules must not change what these headers hold.
function(kr_add_precompiled_header name)
    file(WRITE "${PROJECT_BINARY_DIR}/precompiled.cpp" "")
    add_library(${name} OBJECT "${PROJECT_BINARY_DIR}/precompiled.cpp")
    target_link_libraries(${name} PRIVATE Qt6::Core)
    target_compile_options(${name} PRIVATE ${ARGN})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)
    target_precompile_headers(${name} PRIVATE
        <QtCore/QByteArray> <QtCore/QCoreApplication> <QtCore/QHash> <QtCore/QJsonObject>
        <QtCore/QList> <QtCore/QMap> <QtCore/QMetaType> <QtCore/QObject> <QtCore/QPointer>
        <QtCore/QSet> <QtCore/QString> <QtCore/QStringList> <QtCore/QVariant>
        <algorithm> <array> <functional> <map> <memory> <optional> <string> <utility> <vector>)
endfunction()

# A precompiled header serves one level of optimization.
function(kr_precompile_headers)
    kr_collect_targets("${PROJECT_SOURCE_DIR}" targets)
    kr_add_precompiled_header(KrPrecompiledHeader)
    kr_add_precompiled_header(KrPrecompiledTestHeader -O0)
    foreach(target IN LISTS targets)
        get_target_property(isUnoptimized ${target} KR_UNOPTIMIZED)
        if(isUnoptimized)
            target_precompile_headers(${target} REUSE_FROM KrPrecompiledTestHeader)
        else()
            target_precompile_headers(${target} REUSE_FROM KrPrecompiledHeader)
        endif()
        # For the compiler cache.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endforeach()
endfunction()
