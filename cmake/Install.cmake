# What is installed, in three components: the library itself, what programs are built with, and the tools.

include(CMakePackageConfigHelpers)

set(package "${CMAKE_INSTALL_LIBDIR}/cmake/BxXmlLib5")
set(library COMPONENT BxXmlLib5_Library)
set(development COMPONENT BxXmlLib5_Development)
set(tools COMPONENT BxXmlLib5_Tools)

# --- The library

get_target_property(library_type BxXmlLib5 TYPE)
string(COMPARE EQUAL "${library_type}" STATIC_LIBRARY is_static)
install(TARGETS BxXmlLib5 EXPORT BxXmlLib5Targets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" ${library} NAMELINK_COMPONENT BxXmlLib5_Development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" ${development}
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" ${development})
install(EXPORT BxXmlLib5Targets NAMESPACE BxXmlLib5:: DESTINATION "${package}" ${development})

# --- For find_package

write_basic_package_version_file("${PROJECT_BINARY_DIR}/BxXmlLib5ConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_SOURCE_DIR}/cmake/BxXmlLib5Config.cmake"
  "${PROJECT_BINARY_DIR}/BxXmlLib5ConfigVersion.cmake"
  "${PROJECT_SOURCE_DIR}/cmake/BxGenerate.cmake"
  DESTINATION "${package}" ${development})
if(is_static)
  install(FILES
    "${PROJECT_SOURCE_DIR}/cmake/BxXmlLib5Dependencies.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/FindExpatw.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/FindPCRE2.cmake"
    DESTINATION "${package}" ${development})
endif()

# --- For pkg-config

# A shared library brings what it needs itself.
set(pc_libs "-lexpatw -lz -lpcre2-8")
if(is_static)
  set(pc_libs "Libs: -L\${libdir} -lBxXmlLib5 ${pc_libs}")
else()
  set(pc_libs "Libs: -L\${libdir} -lBxXmlLib5\nLibs.private: ${pc_libs}")
endif()
# From where the file is, so that the folder of an installation can be moved.
set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  file(RELATIVE_PATH pc_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/.")
  string(REGEX REPLACE "/$" "" pc_prefix "\${pcfiledir}/${pc_prefix}")
endif()
foreach(folder LIBDIR INCLUDEDIR BINDIR)
  cmake_path(APPEND pc_${folder} "\${prefix}" "${CMAKE_INSTALL_${folder}}")
endforeach()
configure_file("${PROJECT_SOURCE_DIR}/cmake/bxxmllib5.pc.in" "${PROJECT_BINARY_DIR}/bxxmllib5.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/bxxmllib5.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" ${development})

# --- The tools

if(BXXMLLIB5_TOOLS)
  file(RELATIVE_PATH to_library "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
  set_target_properties(bxconvert PROPERTIES INSTALL_RPATH "$ORIGIN/${to_library}")
  install(TARGETS bxconvert RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" ${tools})
  if(TARGET bxgen)
    # A file of its own, as the library may be installed without the tools.
    install(TARGETS bxgen EXPORT BxXmlLib5Tools RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" ${tools})
    install(EXPORT BxXmlLib5Tools NAMESPACE BxXmlLib5:: DESTINATION "${package}" ${tools})
  endif()
  foreach(tool bxconvert bxgen)
    if(TARGET ${tool})
      install(FILES "${PROJECT_SOURCE_DIR}/docs/man/${tool}.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" ${tools})
      # bash looks for the completion by the name of the tool.
      install(FILES "${PROJECT_SOURCE_DIR}/tools/completion/bxtools.bash" RENAME ${tool}
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" ${tools})
    endif()
  endforeach()
endif()
