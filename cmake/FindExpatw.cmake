# Expat's wide build: libexpatw, whose XML_Char is a 16-bit unit.
#
# Imported target: Expatw::Expatw. It defines XML_UNICODE, without which expat.h declares the narrow interface.

find_path(Expatw_INCLUDE_DIR expat.h)
find_library(Expatw_LIBRARY expatw)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Expatw REQUIRED_VARS Expatw_LIBRARY Expatw_INCLUDE_DIR)

if(Expatw_FOUND AND NOT TARGET Expatw::Expatw)
  add_library(Expatw::Expatw UNKNOWN IMPORTED)
  set_target_properties(Expatw::Expatw PROPERTIES
    IMPORTED_LOCATION "${Expatw_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Expatw_INCLUDE_DIR}"
    INTERFACE_COMPILE_DEFINITIONS XML_UNICODE)
endif()
mark_as_advanced(Expatw_INCLUDE_DIR Expatw_LIBRARY)
