# What is installed, by component: library (what programs need to run), dev (what it takes to build them), tool.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/JsonParser)
foreach(kind ${jsonparser_kinds})
    install(TARGETS jsonparser_headers jsonparser_core_${kind} jsonparser_support_${kind} jsonparser_${kind}
            EXPORT JsonParser-${kind}
            ARCHIVE COMPONENT dev
            LIBRARY COMPONENT library NAMELINK_COMPONENT dev)
    install(EXPORT JsonParser-${kind} NAMESPACE JsonParser:: DESTINATION ${package_dir} COMPONENT dev)
endforeach()
configure_package_config_file(cmake/JsonParserConfig.cmake.in JsonParserConfig.cmake INSTALL_DESTINATION ${package_dir})
set(compatibility SameMajorVersion)
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(compatibility SameMinorVersion)
endif()
write_basic_package_version_file(JsonParserConfigVersion.cmake COMPATIBILITY ${compatibility})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/JsonParserConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/JsonParserConfigVersion.cmake cmake/JsonParserJsoncpp.cmake
        DESTINATION ${package_dir} COMPONENT dev)

install(DIRECTORY include/vkrecords TYPE INCLUDE COMPONENT dev FILES_MATCHING PATTERN *.h)
install(FILES vkprotocolstack/JsonParser.h vkprotocolstack/explain.h vkprotocolstack/message_text.h
              vkprotocolstack/version.h vkprotocolstack/vocabulary.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vkprotocolstack COMPONENT dev)
install(FILES vkprotocolstack/support/support.h vkprotocolstack/support/export.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vkprotocolstack/support COMPONENT dev)

# pkg-config. Three files, so that a static link gets its libraries in the right order: core, support, jsoncpp.
file(RELATIVE_PATH path_to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
function(jsonparser_install_pc name description requires libs)
    set(pc_name ${name})
    set(pc_description "${description}")
    set(pc_requires "${requires}")
    set(pc_libs "${libs}")
    configure_file(cmake/jsonparser.pc.in ${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()
jsonparser_install_pc(jsonparser "${PROJECT_DESCRIPTION}" "jsonparser-core jsonparser-support" "")
jsonparser_install_pc(jsonparser-core "${PROJECT_DESCRIPTION}: the converters"
                      "jsoncpp >= ${jsonparser_jsoncpp_least}" "-L\${libdir} -ljsonparser-core")
jsonparser_install_pc(jsonparser-support "${PROJECT_DESCRIPTION}: the default support functions"
                      "jsoncpp >= ${jsonparser_jsoncpp_least}" "-L\${libdir} -ljsonparser-support")

if(TARGET jsonparser_tool)
    install(TARGETS jsonparser_tool COMPONENT tool)
endif()

include(JsonParserPackages)
