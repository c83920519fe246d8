# kr_embed_translation(TARGET NAME)
# translations/NAME.ts becomes the resource :/i18n/NAME.qm of a program or shared library.
function(kr_embed_translation target name)
    qt_add_translation(compiled "${PROJECT_SOURCE_DIR}/translations/${name}.ts" OPTIONS -silent)
    qt_add_resources(${target} "${name}_translation"
        PREFIX "/i18n" BASE "${CMAKE_CURRENT_BINARY_DIR}" FILES "${compiled}")
endfunction()

# kr_add_translation(TARGET NAME FOLDERS ...)
# translations/NAME.ts, the texts of the sources in FOLDERS, becomes the resource :/i18n/NAME.qm of a
# program or shared library. The target update_translations brings the files up to date with the
# sources; it is no part of the build. What stands in which file is kept in the global property
# KR_TRANSLATIONS, each as NAME=FOLDER,FOLDER.
function(kr_add_translation target name)
    cmake_parse_arguments(ARG "" "" "FOLDERS" ${ARGN})
    set(file "${PROJECT_SOURCE_DIR}/translations/${name}.ts")
    kr_embed_translation(${target} ${name})
    list(JOIN ARG_FOLDERS "," folders)
    set_property(GLOBAL APPEND PROPERTY KR_TRANSLATIONS "${name}=${folders}")
    if(NOT TARGET update_translations)
        add_custom_target(update_translations)
    endif()
    add_custom_target(update_${name}
        COMMAND Qt6::lupdate -silent -no-obsolete -locations none -I . -I include ${ARG_FOLDERS}
            -ts "${file}"
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
    add_dependencies(update_translations update_${name})
endfunction()
