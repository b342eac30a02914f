# The package that other programs build against: one shared library of records, platform, engine and panels, its
# headers, and what find_package(DepthPanels) reads. The programs come as a package of their own.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(PublicHeaders)

# In the order of who may know whom. Feeds and host are no part of the library.
set(library_parts
  depth_records depth_platform depth_models depth_toolkit depth_engine
  depth_queue_view depth_frame depth_thousand depth_tick depth_holographic depth_level_panels
  depth_local_information depth_information)
list(TRANSFORM library_parts REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE library_objects)

add_library(depth_panels SHARED ${library_objects})
add_library(DepthPanels::panels ALIAS depth_panels)
set_target_properties(depth_panels PROPERTIES
  OUTPUT_NAME depthpanels
  EXPORT_NAME panels
  VERSION "${PROJECT_VERSION}"
  SOVERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}" # until 1.0 each minor version may change the ABI
  LINKER_LANGUAGE CXX
  AUTOMOC OFF)
target_compile_features(depth_panels INTERFACE cxx_std_17)
target_include_directories(depth_panels INTERFACE
  "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>"
  "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/DepthPanels>")
target_link_libraries(depth_panels
  PUBLIC
    Qt5::Widgets Boost::boost Boost::thread Boost::system Boost::chrono Threads::Threads PkgConfig::LOG4CXX
    absl::flat_hash_set absl::flat_hash_map absl::btree
  PRIVATE
    "$<BUILD_INTERFACE:Qt5::Svg>" "$<BUILD_INTERFACE:PkgConfig::BSON>")
target_link_options(depth_panels PRIVATE LINKER:--no-undefined)

# Installing, in three parts: "runtime" to run a program that embeds the library, "development" to build one,
# "programs" for those who just want the terminal.
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/DepthPanels")
install(TARGETS depth_panels EXPORT DepthPanelsTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development)
foreach(header IN LISTS DEPTH_PUBLIC_HEADERS)
  get_filename_component(folder "${header}" DIRECTORY)
  install(FILES "${PROJECT_SOURCE_DIR}/src/${header}"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/DepthPanels/${folder}" COMPONENT development)
endforeach()
install(EXPORT DepthPanelsTargets NAMESPACE DepthPanels:: DESTINATION "${package_dir}" COMPONENT development)
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/DepthPanelsConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/package/DepthPanelsConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/DepthPanelsConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/package/DepthPanelsConfig.cmake"
    "${PROJECT_BINARY_DIR}/package/DepthPanelsConfigVersion.cmake"
  DESTINATION "${package_dir}" COMPONENT development)
install(TARGETS depth depth-terminal RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT programs)

# What the desktop shows of the terminal, and the local tables of two simulated instruments.
set(packaging_dir "${PROJECT_SOURCE_DIR}/packaging")
install(FILES "${packaging_dir}/depth-terminal.desktop"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT programs)
install(FILES "${packaging_dir}/depth-terminal.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT programs)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/external_data"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/depth-terminal/examples" COMPONENT programs)

# The pages for embedders, in folders in which their links to each other hold.
set(development_doc_dir "${CMAKE_INSTALL_DATADIR}/doc/libdepthpanels-dev")
install(FILES
    docs/archive-format.md docs/embedding.md docs/events.md docs/feed-records.md docs/importers.md docs/ownership.md
  DESTINATION "${development_doc_dir}/docs" COMPONENT development)
file(GLOB drawings CONFIGURE_DEPENDS docs/pictures/*.svg)
install(FILES ${drawings} DESTINATION "${development_doc_dir}/docs/pictures" COMPONENT development)
install(FILES themes/README.md themes/dark.json themes/light.json
  DESTINATION "${development_doc_dir}/themes" COMPONENT development)
install(DIRECTORY examples/minimal_host DESTINATION "${development_doc_dir}/examples" COMPONENT development)

# Man pages are made from what the programs print for --help; the target `man_pages` is no part of the usual build.
find_package(Python3 COMPONENTS Interpreter)
if(Python3_FOUND)
  set(man_pages)
  foreach(program IN ITEMS depth depth-terminal)
    set(man_page "${PROJECT_BINARY_DIR}/man/${program}.1.gz")
    add_custom_command(OUTPUT "${man_page}"
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${PROJECT_BINARY_DIR}/man"
      COMMAND "${packaging_dir}/make_man_page.py" "$<TARGET_FILE:${program}>" "${man_page}"
      DEPENDS "${packaging_dir}/make_man_page.py" ${program}
      VERBATIM)
    list(APPEND man_pages "${man_page}")
  endforeach()
  add_custom_target(man_pages DEPENDS ${man_pages})
  install(FILES ${man_pages} DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT programs OPTIONAL)
endif()

include(DebianPackages)
