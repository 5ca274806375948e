# What cpack makes of what is installed: on Windows one .zip to unpack anywhere, elsewhere three .deb, one of
# each part. scripts/package.sh runs it.
set(CPACK_PACKAGE_VENDOR "Kestova Timeline developers")
set(CPACK_PACKAGE_CONTACT "Kestova Timeline developers <dev@kestova.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME KestovaTimelineQU-${PROJECT_VERSION}-win64)
  include(CPack)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(KESTOVA_BUILD_HOST)
  list(APPEND CPACK_COMPONENTS_ALL Host)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What the programs need of the system is read from them. The library they share lies in another package,
# which is named below; here it is found where it was built.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/timeline)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)

set(runtime libkestovatimelinequ${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "timeline editor component for animation applications
A timeline that Qt 5 applications dock into their windows. It shows keys, clips,
transitions, links, mouth shapes and switches on tracks against one frame axis,
and tells the application of what the user does with them.

This package holds the shared library and its skins.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkestovatimelinequ-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "timeline editor component: files for development
A timeline that Qt 5 applications dock into their windows.

This package holds the headers, what CMake and pkg-config need to find the
library, the checker of skins, the guides and an example.")

set(CPACK_DEBIAN_HOST_PACKAGE_NAME kestova-host)
set(CPACK_DEBIAN_HOST_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_HOST_PACKAGE_DEPENDS "${runtime} (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_HOST_PACKAGE_RECOMMENDS libqt5multimedia5-plugins)
set(CPACK_DEBIAN_HOST_DESCRIPTION "small lip-sync editor
Opens motion capture, mouth cues and sounds, shows them in a timeline with a
preview, plays, edits and saves them.

It is the reference host of the KestovaTimelineQU component. Its sample scene
comes with it.")
include(CPack)
