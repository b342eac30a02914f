# Debian packages by CPack, see scripts/package.sh: the library, what it takes to build against it, the programs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME depthpanels)
set(CPACK_PACKAGE_CONTACT "Depth Panels Developers <maintainers@example.org>")
set(CPACK_COMPONENTS_ALL runtime development programs)
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(fonts "fonts-dejavu-core, fonts-wqy-microhei")

set(library_package "libdepthpanels${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${library_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "${fonts}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# The trigger is Debian's way to have ldconfig run; CPack's scripts, which call it themselves, do no harm beside it.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/triggers")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "level-2 market depth panels for Qt
Order queue, price ladder, tick lists, deal chart, quote and news panels of
one instrument. This is the shared library that hosts of the panels run with.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libdepthpanels-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${library_package} (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15), libboost-dev (>= 1.74), libboost-thread-dev, libboost-system-dev, libboost-chrono-dev, libabsl-dev, liblog4cxx-dev, pkg-config")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "level-2 market depth panels for Qt - development files
Headers and CMake package: what it takes to build a host of the panels, with
pages for its developers and the smallest host as an example.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME depth-terminal)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_RECOMMENDS "${fonts}")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION
  "replays trading days with market depth panels
The terminal shows order queue, price ladder, tick lists, deal chart and
quotes of a simulated or recorded day in step. The command line program
depth makes, converts and verifies such days.")

# Each package brings what Debian wants in its folder of documents. The time of the file stays out of its compressed form,
# so that the same sources give the same package.
file(STRINGS "${PROJECT_SOURCE_DIR}/packaging/changelog" latest_change LIMIT_COUNT 1)
if(NOT latest_change MATCHES "\\(${PROJECT_VERSION}\\)")
  message(FATAL_ERROR "packaging/changelog does not begin with version ${PROJECT_VERSION}")
endif()
find_program(GZIP_PROGRAM gzip)
set(changelog "${PROJECT_BINARY_DIR}/package/changelog.gz")
if(GZIP_PROGRAM)
  execute_process(COMMAND "${GZIP_PROGRAM}" -9nc "${PROJECT_SOURCE_DIR}/packaging/changelog" OUTPUT_FILE "${changelog}")
endif()
foreach(component IN ITEMS RUNTIME DEVELOPMENT PROGRAMS)
  string(TOLOWER "${component}" component_name)
  set(folder "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME}")
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright" DESTINATION "${folder}" COMPONENT ${component_name})
  install(FILES "${changelog}" DESTINATION "${folder}" COMPONENT ${component_name} OPTIONAL)
endforeach()

include(CPack)
