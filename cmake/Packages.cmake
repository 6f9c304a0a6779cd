# The Debian packages that cpack makes: libbxxmllib5, libbxxmllib5-dev and bxxmllib5-tools. scripts/package.sh builds
# them with the prefix /usr.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME bxxmllib5)
set(CPACK_PACKAGE_VENDOR BxXmlLib5)
set(CPACK_PACKAGE_CONTACT "BxXmlLib5 developers <bxxmllib5@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
# Each package has a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL BxXmlLib5_Library BxXmlLib5_Development BxXmlLib5_Tools)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Compresses the manual pages, as Debian wants them.
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/CompressManuals.cmake")

set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# package(COMPONENT NAME SECTION DEPENDS SUMMARY DESCRIPTION)
function(package component name section depends summary description)
  string(TOUPPER "${component}" key)
  set(prefix "CPACK_DEBIAN_${key}")
  set(${prefix}_PACKAGE_NAME "${name}" PARENT_SCOPE)
  set(${prefix}_PACKAGE_SECTION "${section}" PARENT_SCOPE)
  set(${prefix}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
  set(${prefix}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
endfunction()

set(same "(= ${PROJECT_VERSION})")
package(BxXmlLib5_Library libbxxmllib5 libs ""
  "XML data binding for C++20, the library"
  "It writes objects of generated classes as XML text or Fast Infoset, plain or compressed, and reads them back.")
package(BxXmlLib5_Development libbxxmllib5-dev libdevel
  "libbxxmllib5 ${same}, bxxmllib5-tools (>= ${PROJECT_VERSION})"
  "XML data binding for C++20, headers"
  "What programs are built with that use the library: headers, and files for CMake and pkg-config.")
package(BxXmlLib5_Tools bxxmllib5-tools devel "libbxxmllib5 ${same}"
  "XML data binding for C++20, tools"
  "The schema compiler bxgen makes C++ classes of XML schemas; bxconvert turns XML text and Fast Infoset into each other.")

include(CPack)
