# What "cmake --install" lays out and cpack packs: the headers, both libraries, the command line, the
# debugger's helpers, and what CMake and pkg-config need to find them.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

foreach(target engine_core asset_tools)
  target_include_directories(${target} PUBLIC
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/asset_tools>)
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH $ORIGIN)
endforeach()
install(TARGETS engine_core asset_tools EXPORT asset_tools_targets)
if(TARGET asset_tool)
  file(RELATIVE_PATH libraries /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  set_target_properties(asset_tool PROPERTIES INSTALL_RPATH $ORIGIN/${libraries})
  install(TARGETS asset_tool)
endif()
install(DIRECTORY core formats containers
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/asset_tools
  FILES_MATCHING PATTERN *.h)
install(FILES debug/asset_tools_gdb.py debug/asset_tools.natvis DESTINATION ${CMAKE_INSTALL_DATADIR}/asset_tools)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/asset_tools)
install(EXPORT asset_tools_targets NAMESPACE asset_tools:: FILE asset_tools-config.cmake DESTINATION ${package})
write_basic_package_version_file(asset_tools-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/asset_tools-config-version.cmake DESTINATION ${package})

# Found from its own place, so that the installed folder can be moved.
file(RELATIVE_PATH prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix "${prefix}")
file(CONFIGURE OUTPUT asset_tools.pc @ONLY CONTENT [[
prefix=${pcfiledir}/@prefix@
Name: asset_tools
Description: @PROJECT_DESCRIPTION@
Version: @PROJECT_VERSION@
Cflags: -I${prefix}/@CMAKE_INSTALL_INCLUDEDIR@/asset_tools -std=c++20
Libs: -L${prefix}/@CMAKE_INSTALL_LIBDIR@ -lasset_tools -lengine_core
]])
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/asset_tools.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(CPACK_PACKAGE_NAME asset-tools)
set(CPACK_PACKAGE_VENDOR "asset tools")
set(CPACK_PACKAGE_CONTACT "asset tools maintainers <maintainers@users.noreply.example>")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
endif()
include(CPack)
