include(CMakePackageConfigHelpers)

install(TARGETS jsonparser_headers jsonparser_core jsonparser_support jsonparser EXPORT JsonParserTargets)
install(DIRECTORY include/vkrecords TYPE INCLUDE FILES_MATCHING PATTERN *.h)
install(FILES vkprotocolstack/JsonParser.h vkprotocolstack/explain.h vkprotocolstack/message_text.h
              vkprotocolstack/vocabulary.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vkprotocolstack)
install(FILES vkprotocolstack/support/support.h vkprotocolstack/support/export.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vkprotocolstack/support)
if(TARGET jsonparser_tool)
    install(TARGETS jsonparser_tool)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/JsonParser)
install(EXPORT JsonParserTargets NAMESPACE JsonParser:: DESTINATION ${package_dir})
configure_package_config_file(cmake/JsonParserConfig.cmake.in JsonParserConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(JsonParserConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/JsonParserConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/JsonParserConfigVersion.cmake cmake/JsonParserJsoncpp.cmake
        DESTINATION ${package_dir})
