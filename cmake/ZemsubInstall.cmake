# Installs the library, its headers in one include directory, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(ZEMSUB_INCLUDE_INSTALL_DIR ${CMAKE_INSTALL_INCLUDEDIR}/zemsubtitle)
set(ZEMSUB_CMAKE_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/zemsubtitle)

install(TARGETS zemsubtitle EXPORT zemsubtitleTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${ZEMSUB_INCLUDE_INSTALL_DIR})

install(FILES include/ISubTitle.h include/zemsubtitle_export.h DESTINATION ${ZEMSUB_INCLUDE_INSTALL_DIR})
foreach(dir maker manager parsers strings)
  install(DIRECTORY ${dir}/ DESTINATION ${ZEMSUB_INCLUDE_INSTALL_DIR}/${dir}
    FILES_MATCHING PATTERN "*.h" PATTERN "detail" EXCLUDE)
endforeach()

install(EXPORT zemsubtitleTargets NAMESPACE zemsubtitle:: DESTINATION ${ZEMSUB_CMAKE_INSTALL_DIR})
configure_package_config_file(cmake/zemsubtitleConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/zemsubtitleConfig.cmake
  INSTALL_DESTINATION ${ZEMSUB_CMAKE_INSTALL_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/zemsubtitleConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zemsubtitleConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/zemsubtitleConfigVersion.cmake
  DESTINATION ${ZEMSUB_CMAKE_INSTALL_DIR})

set(ZEMSUB_PC_QT_REQUIRES "Qt${ZEMSUB_QT_MAJOR}Core >= ${ZEMSUB_QT_VERSION_REQ}, Qt${ZEMSUB_QT_MAJOR}Gui >= ${ZEMSUB_QT_VERSION_REQ}")
# The .pc file finds its prefix from where it is installed, so --prefix at install time works.
file(RELATIVE_PATH ZEMSUB_PC_PREFIX_FROM_PCDIR "/p/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/p")
configure_file(cmake/zemsubtitle.pc.in ${CMAKE_CURRENT_BINARY_DIR}/zemsubtitle.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zemsubtitle.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
