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
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/minimal_host"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}/examples" COMPONENT development)

include(DebianPackages)
