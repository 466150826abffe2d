# jsoncpp as Debian packages it. Its own configuration may be loaded only once by a project, and the user may have done
# so, or may still do it: so only its targets are loaded here, and only where nobody has. What is amiss becomes
# jsonparser_jsoncpp_missing, for the caller to complain.
set(jsonparser_jsoncpp_least 1.9.5)
set(jsonparser_jsoncpp_missing)
if(NOT TARGET jsoncpp_lib)
    find_path(JSONPARSER_JSONCPP_CMAKE jsoncpp-targets.cmake
              PATH_SUFFIXES lib/${CMAKE_LIBRARY_ARCHITECTURE}/cmake/jsoncpp lib/cmake/jsoncpp
              HINTS ${jsoncpp_DIR})
    mark_as_advanced(JSONPARSER_JSONCPP_CMAKE)
    if(JSONPARSER_JSONCPP_CMAKE)
        include(${JSONPARSER_JSONCPP_CMAKE}/jsoncpp-targets.cmake)
    else()
        set(jsonparser_jsoncpp_missing
            "JsonParser needs jsoncpp ${jsonparser_jsoncpp_least} or later (Debian package libjsoncpp-dev)")
    endif()
endif()
if(TARGET jsoncpp_lib)
    get_target_property(jsonparser_jsoncpp_includes jsoncpp_lib INTERFACE_INCLUDE_DIRECTORIES)
    set(jsonparser_jsoncpp_version)
    foreach(folder ${jsonparser_jsoncpp_includes})
        if(EXISTS ${folder}/json/version.h)
            file(STRINGS ${folder}/json/version.h jsonparser_jsoncpp_version REGEX "define JSONCPP_VERSION_STRING")
        endif()
    endforeach()
    if(jsonparser_jsoncpp_version MATCHES "\"([0-9.]+)\"" AND CMAKE_MATCH_1 VERSION_LESS jsonparser_jsoncpp_least)
        set(jsonparser_jsoncpp_missing
            "JsonParser needs jsoncpp ${jsonparser_jsoncpp_least} or later; this is ${CMAKE_MATCH_1}")
    endif()
    unset(jsonparser_jsoncpp_includes)
    unset(jsonparser_jsoncpp_version)
endif()
