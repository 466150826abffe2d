# jsoncpp as Debian packages it. Its own configuration may be loaded only once by a project, and the user may have done
# so, or may still do it: so only its targets are loaded here, and only where nobody has.
if(NOT TARGET jsoncpp_lib)
    find_path(JSONPARSER_JSONCPP_CMAKE jsoncpp-targets.cmake
              PATH_SUFFIXES lib/${CMAKE_LIBRARY_ARCHITECTURE}/cmake/jsoncpp lib/cmake/jsoncpp
              HINTS ${jsoncpp_DIR})
    mark_as_advanced(JSONPARSER_JSONCPP_CMAKE)
    if(NOT JSONPARSER_JSONCPP_CMAKE)
        message(FATAL_ERROR "JsonParser needs jsoncpp 1.9.5 or later (Debian package libjsoncpp-dev)")
    endif()
    include(${JSONPARSER_JSONCPP_CMAKE}/jsoncpp-targets.cmake)
endif()
