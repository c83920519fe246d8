# The parameter library: an object library, which the tests of internals link, wrapped by the shared
# library, which hosts and the tests of exported behaviour link.
add_library(KrParameterInstanceObjects OBJECT)
set_target_properties(KrParameterInstanceObjects PROPERTIES POSITION_INDEPENDENT_CODE ON)
target_compile_definitions(KrParameterInstanceObjects PRIVATE KrParameterInstance_EXPORTS)
target_include_directories(KrParameterInstanceObjects PUBLIC
    "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/include" "${PROJECT_BINARY_DIR}/include")
target_link_libraries(KrParameterInstanceObjects PUBLIC
    Qt6::Core Qt6::Gui Qt6::Widgets Kr::ParameterDefinition Kr::Multilingual Kr::Locator Kr::System
    Kr::Datatype Kr::Firmware Kr::ProjectRepository Kr::Filter Kr::LmUtilities Kr::ParameterData)

set(KrParameterInstanceHeaders
    ActionParameter.h ParameterContainer.h ParameterContainerHostInformation.h
    ParameterInformation.h ParameterNavigationHost.h ParameterProvider.h ParameterSetup.h
    ParameterValueSnapshot.h ParameterValueSnapshotWidget.h)
list(TRANSFORM KrParameterInstanceHeaders PREPEND
    "${PROJECT_SOURCE_DIR}/include/KrParameterInstance/")
# Named here so that their Q_OBJECT classes are seen.
target_sources(KrParameterInstanceObjects PRIVATE ${KrParameterInstanceHeaders})

add_subdirectory(value)
add_subdirectory(instance)
add_subdirectory(container)
add_subdirectory(snapshot)

add_library(KrParameterInstance SHARED $<TARGET_OBJECTS:KrParameterInstanceObjects>)
set_target_properties(KrParameterInstance PROPERTIES AUTOMOC OFF LINKER_LANGUAGE CXX)
target_link_libraries(KrParameterInstance PUBLIC
    Qt6::Core Qt6::Widgets Kr::ParameterDefinition Kr::Multilingual
    PRIVATE Qt6::Gui Kr::Locator Kr::System Kr::Datatype Kr::Firmware Kr::ProjectRepository
    Kr::Filter Kr::LmUtilities Kr::ParameterData)
kr_finish_library(KrParameterInstance KrParameterInstance "${PROJECT_SOURCE_DIR}/include"
    EXPORT_SET KrParameterInstanceTargets HEADERS ${KrParameterInstanceHeaders})
kr_add_translation(KrParameterInstance KrParameterInstance_en
    FOLDERS value instance container snapshot include)
kr_install_package(KrParameterInstance "${PROJECT_SOURCE_DIR}/cmake/KrParameterInstanceConfig.cmake.in"
    KrParameterInstanceTargets)
