# Three Debian packages, made by `cpack -G DEB`, in a build for the prefix /usr: only with that prefix do libraries go
# where Debian has them. scripts/check_packages makes and tries them.
find_program(GZIP gzip)
if(NOT UNIX OR NOT GZIP OR NOT CMAKE_INSTALL_PREFIX STREQUAL /usr)
    return()
endif()
# Who makes packages for others answers for them, and says so as to Debian's own tools. Without that nobody is named: mail
# to the domain invalid goes nowhere.
set(maintainer "JsonParser developers <jsonparser@packages.invalid>")
if(DEFINED ENV{DEBFULLNAME} AND DEFINED ENV{DEBEMAIL})
    set(maintainer "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
set(JSONPARSER_MAINTAINER "${maintainer}" CACHE STRING "Name and address of who answers for the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_CONTACT "${JSONPARSER_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR}/vkprotocolstack)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)

set(doc_dir ${CMAKE_CURRENT_BINARY_DIR}/debian)
file(READ LICENSE licence)
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)\n\n(.*)" licence "${licence}")
set(copyright "${CMAKE_MATCH_1}")
string(STRIP "${CMAKE_MATCH_2}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " licence " ${licence}")
configure_file(cmake/debian-copyright.in ${doc_dir}/copyright @ONLY)
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH, where it is set
configure_file(cmake/debian-changelog.in ${doc_dir}/changelog @ONLY)
execute_process(COMMAND ${GZIP} -9nf ${doc_dir}/changelog COMMAND_ERROR_IS_FATAL ANY)

# Describes the package of a component and adds what Debian wants in each.
macro(jsonparser_package component name section summary description)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}")
    install(FILES ${doc_dir}/copyright ${doc_dir}/changelog.gz DESTINATION share/doc/${name} COMPONENT ${component}
            EXCLUDE_FROM_ALL)
endmacro()

set(about "JsonParser turns the JSON message bodies of network video devices into
fixed-layout C records, and records back into JSON.
")
set(library libjsonparser${jsonparser_soversion})
if(shared IN_LIST jsonparser_kinds)
    jsonparser_package(library ${library} libs "message-body codec for network video devices"
                       "${about}This package has the shared libraries.")
    file(WRITE ${doc_dir}/triggers "activate-noawait ldconfig\n")
    set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${doc_dir}/triggers)
    set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION}), ")
endif()
jsonparser_package(dev libjsonparser-dev libdevel "message-body codec for network video devices (development files)"
                   "${about}This package has headers, static libraries, and files for CMake and pkg-config.")
string(APPEND CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libjsoncpp-dev (>= ${jsonparser_jsoncpp_least})")
if(TARGET jsonparser_tool)
    jsonparser_package(tool jsonparser utils "command-line codec for messages of network video devices"
                       "${about}This package has the command-line tool.")
    # Debian has manual pages compressed.
    install(CODE "file(GLOB pages \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/man1/*.1)
                  execute_process(COMMAND ${GZIP} -9nf \${pages} COMMAND_ERROR_IS_FATAL ANY)"
            COMPONENT tool EXCLUDE_FROM_ALL)
endif()
include(CPack)
