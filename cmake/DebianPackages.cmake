# Debian packages by CPack, see scripts/package.sh: the library, what it takes to build against it, the programs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME depthpanels)
set(CPACK_PACKAGE_CONTACT "Depth Panels Developers <maintainers@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "level-2 market depth panels for Qt")
set(CPACK_COMPONENTS_ALL runtime development programs)
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(fonts "fonts-dejavu-core, fonts-wqy-microhei")

set(library_package "libdepthpanels${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${library_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "${fonts}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "order queue, price ladder, tick lists, deal chart, quote and news panels\n The shared library that hosts of the panels run with.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libdepthpanels-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${library_package} (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15), libboost-dev (>= 1.74), libboost-thread-dev, libboost-system-dev, libboost-chrono-dev, libabsl-dev, liblog4cxx-dev, pkg-config")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "headers and CMake package of the depth panels\n What it takes to build a host of the panels, with the smallest one as an example.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME depth-terminal)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_RECOMMENDS "${fonts}")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION
  "replays trading days with all depth panels\n The terminal with its window, and the command line program for days and archives.")

include(CPack)
