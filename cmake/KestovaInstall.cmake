# What is installed, in three parts: Runtime is what a program needs that was built with the library,
# Development what building one takes, and Host is the reference host.
include(CMakePackageConfigHelpers)

install(TARGETS KestovaTimelineQU EXPORT KestovaTimelineQUTargets
  RUNTIME COMPONENT Runtime
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE COMPONENT Development)
install(DIRECTORY skins/ DESTINATION ${KESTOVA_INSTALL_SKINS} COMPONENT Runtime FILES_MATCHING PATTERN *.ini)
if(KESTOVA_WINDOWS_RUNTIME)
  kestova_install_windows_runtime()
endif()

install(FILES ${KESTOVA_INSTALLED_HEADERS}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/KestovaTimelineQU COMPONENT Development)
install(EXPORT KestovaTimelineQUTargets NAMESPACE KestovaTimelineQU::
        DESTINATION ${KESTOVA_INSTALL_CMAKE} COMPONENT Development)
configure_package_config_file(cmake/KestovaTimelineQUConfig.cmake.in KestovaTimelineQUConfig.cmake
  INSTALL_DESTINATION ${KESTOVA_INSTALL_CMAKE} PATH_VARS KESTOVA_INSTALL_SKINS)
write_basic_package_version_file(KestovaTimelineQUConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KestovaTimelineQUConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KestovaTimelineQUConfigVersion.cmake
        DESTINATION ${KESTOVA_INSTALL_CMAKE} COMPONENT Development)
kestova_way(prefix_from_pkgconfig ${KESTOVA_INSTALL_PKGCONFIG} .)
configure_file(cmake/KestovaTimelineQU.pc.in KestovaTimelineQU.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KestovaTimelineQU.pc
        DESTINATION ${KESTOVA_INSTALL_PKGCONFIG} COMPONENT Development)
if(TARGET kestova-skin-check)
  install(TARGETS kestova-skin-check RUNTIME COMPONENT Development)
endif()

install(FILES CHANGELOG.md docs/embedding.md docs/host-guide.md docs/skin-reference.md
        DESTINATION ${KESTOVA_INSTALL_DOCS} COMPONENT Development)
install(DIRECTORY docs/images DESTINATION ${KESTOVA_INSTALL_DOCS} COMPONENT Development
        FILES_MATCHING PATTERN skin-*.png)
install(DIRECTORY examples DESTINATION ${KESTOVA_INSTALL_DOCS} COMPONENT Development
        FILES_MATCHING PATTERN *.cpp PATTERN CMakeLists.txt PATTERN Makefile PATTERN README.md
        PATTERN build EXCLUDE)

if(KESTOVA_BUILD_HOST)
  install(TARGETS kestova-host RUNTIME COMPONENT Host)
  install(DIRECTORY samples/ DESTINATION ${KESTOVA_INSTALL_SAMPLES} COMPONENT Host)
  install(FILES docs/user-guide.md docs/scripting.md DESTINATION ${KESTOVA_INSTALL_DOCS} COMPONENT Host)
  install(FILES docs/images/timeline.png docs/images/selection.png docs/images/loops.png
          DESTINATION ${KESTOVA_INSTALL_DOCS}/images COMPONENT Host)
endif()
