# Debian packages with `cpack -G DEB` (scripts/package.sh): libzographics
# (the shared libraries and the basemap), libzographics-dev (headers and the
# CMake package) and zographics-viewer. Configure with
# CMAKE_INSTALL_PREFIX=/usr (the "package" presets do) so that the libraries
# land in Debian's multiarch folder and the host looks for its basemap where
# the package puts it.

set(CPACK_PACKAGE_NAME zographics)
set(CPACK_PACKAGE_VENDOR "ZoGraphics developers")
set(CPACK_PACKAGE_CONTACT "ZoGraphics developers <zographics@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Graphics objects drawn on a host's 2-D map, for Qt applications")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
# The prefix compiled into the host (where it finds the basemap) is the one
# the packages install into.
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
if(ZOGRAPHICS_BUILD_APPS)
    list(APPEND CPACK_COMPONENTS_ALL viewer)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The runtime packages' Depends come from the libraries they link
# (dpkg-shlibdeps), so they name Debian's own packages at the versions built
# against; the development package has no binaries and names them itself.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The viewer's own libraries are in another of these packages: found in the
# build tree, named through the component dependency below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
# A shlibs file in libzographics, so that other packages' Depends can be
# read off their binaries in turn.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# The development package and the viewer also depend on libzographics at
# this very version (the component dependencies below).
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzographics)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "ZoGraphics shared libraries and basemap
 Graphics objects (shapes, text, images, widgets) drawn on a host's 2-D map,
 for Qt ${ZOGRAPHICS_QT_MAJOR} applications, and the reference map host.")

if(ZOGRAPHICS_QT_MAJOR STREQUAL "5")
    set(_zo_qt_dev_packages "qtbase5-dev, libqt5svg5-dev")
else()
    set(_zo_qt_dev_packages "qt6-base-dev, qt6-svg-dev")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzographics-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${_zo_qt_dev_packages}, libproj-dev, cmake (>= 3.25)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "ZoGraphics development files
 Headers and the CMake package (find_package(ZoGraphics CONFIG)) for building
 Qt ${ZOGRAPHICS_QT_MAJOR} map hosts and map objects against ZoGraphics.")

set(CPACK_DEBIAN_VIEWER_PACKAGE_NAME zographics-viewer)
set(CPACK_DEBIAN_VIEWER_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_VIEWER_DESCRIPTION "ZoGraphics map viewer
 zomapview shows the basemap with a gallery of ZoGraphics objects, lets them
 be edited, and renders a view to a PNG file without a display.")

set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_VIEWER_DEPENDS runtime)

include(CPack)
