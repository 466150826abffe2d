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

# Hardening of what is shipped, beside what the distribution builds with by default. tests/hardening looks whether it is
# there. Not for sanitizers and Debug, which are to see the code as it is written.
include(CheckPIESupported)
check_pie_supported()
option(JSONPARSER_HARDENING "Build libraries and tool with the usual hardening flags" ON)
function(jsonparser_harden target)
    if(NOT JSONPARSER_HARDENING OR JSONPARSER_SANITIZE)
        return()
    endif()
    set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
    set(flags -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-protector-strong -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$")
        list(APPEND flags -fcf-protection)
    endif()
    target_compile_options(${target} PRIVATE "$<${optimised}:${flags}>")
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
endfunction()

# BUILD_SHARED_LIBS says which kind of libraries is built. Where nobody has set it, the project by itself builds both.
set(jsonparser_kind static)
if(BUILD_SHARED_LIBS)
    set(jsonparser_kind shared)
endif()
set(jsonparser_kinds ${jsonparser_kind})
if(PROJECT_IS_TOP_LEVEL AND NOT DEFINED BUILD_SHARED_LIBS)
    set(jsonparser_kinds static shared)
endif()

# Before 1.0 every minor version may break what is linked against it.
set(jsonparser_soversion ${PROJECT_VERSION_MAJOR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(jsonparser_soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
endif()

# Gives the kind that was chosen its names.
function(jsonparser_add_aliases target name)
    add_library(${target} ALIAS ${target}_${jsonparser_kind})
    add_library(JsonParser::${name} ALIAS ${target}_${jsonparser_kind})
endfunction()

set(jsonparser_exports ${PROJECT_SOURCE_DIR}/vkprotocolstack/exports.map)

# Adds a library, static, shared or both, from objects, so that tests can link the same objects another way. The objects
# are position-independent: a static library, too, can become part of a client's own shared one.
function(jsonparser_add_library name)
    set(target jsonparser_${name})
    add_library(${target}_objects OBJECT ${ARGN})
    jsonparser_target_options(${target}_objects)
    set_target_properties(${target}_objects PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                                                       VISIBILITY_INLINES_HIDDEN ON UNITY_BUILD OFF)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT JSONPARSER_SANITIZE)
        # Clients call on threads with small stacks. What is not optimised takes more, and is for debugging.
        target_compile_options(${target}_objects PRIVATE "$<$<NOT:$<CONFIG:Debug>>:-Wstack-usage=2048>")
    endif()
    target_link_libraries(${target}_objects PUBLIC jsonparser_headers)
    jsonparser_harden(${target}_objects)

    foreach(kind ${jsonparser_kinds})
        string(TOUPPER ${kind} type)
        add_library(${target}_${kind} ${type} $<TARGET_OBJECTS:${target}_objects>)
        target_link_libraries(${target}_${kind} PUBLIC jsonparser_headers)
        set_target_properties(${target}_${kind} PROPERTIES EXPORT_NAME ${name} OUTPUT_NAME jsonparser-${name}
                              LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${jsonparser_soversion})
        if(kind STREQUAL shared)
            jsonparser_harden(${target}_${kind})
            # Never unloaded: what threads keep for their next message is released when they end, not before.
            target_link_options(${target}_${kind} PRIVATE LINKER:--version-script=${jsonparser_exports}
                                LINKER:-z,nodelete)
            set_target_properties(${target}_${kind} PROPERTIES LINK_DEPENDS ${jsonparser_exports})
        endif()
    endforeach()
    jsonparser_add_aliases(${target} ${name})
endfunction()
