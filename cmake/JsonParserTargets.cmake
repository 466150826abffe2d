# What every target of the project is built with. Sanitizers are global: a program is built with them as a whole.
if(JSONPARSER_SANITIZE)
    add_compile_options(-fsanitize=${JSONPARSER_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${JSONPARSER_SANITIZE})
endif()

function(jsonparser_target_options target)
    target_compile_features(${target} PRIVATE cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow
                                             $<$<BOOL:${JSONPARSER_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# Adds a library, and its alias JsonParser::<name>, from objects, so that tests can link the same objects another way.
function(jsonparser_add_library name)
    set(target jsonparser_${name})
    add_library(${target}_objects OBJECT ${ARGN})
    jsonparser_target_options(${target}_objects)
    set_target_properties(${target}_objects PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                                                       VISIBILITY_INLINES_HIDDEN ON)
    target_link_libraries(${target}_objects PUBLIC jsonparser_headers)

    add_library(${target} $<TARGET_OBJECTS:${target}_objects>)
    add_library(JsonParser::${name} ALIAS ${target})
    target_link_libraries(${target} PUBLIC jsonparser_headers)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} OUTPUT_NAME jsonparser-${name} LINKER_LANGUAGE CXX
                                               VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()
