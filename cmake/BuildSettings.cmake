# Language, warnings, sanitizers, compiler cache and linker, for every target of the project.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden) # what hosts may reach carries DEPTH_EXPORT
set(CMAKE_AUTOMOC ON)
# One moc output per target and no global autogen target: a build of one program waits for nothing else.
set(CMAKE_AUTOMOC_COMPILER_PREDEFINES OFF)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 # two checkouts share what they have in common
      "${CCACHE_PROGRAM}")
endif()
find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM)
  add_link_options(-fuse-ld=lld)
endif()

find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Svg)
find_package(Boost 1.74 REQUIRED COMPONENTS thread system chrono)
find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(BSON REQUIRED IMPORTED_TARGET libbson-1.0)
pkg_check_modules(LOG4CXX REQUIRED IMPORTED_TARGET liblog4cxx)
pkg_check_modules(ZSTD REQUIRED IMPORTED_TARGET libzstd)
find_package(absl REQUIRED)

# What every target of ours compiles with; third-party headers come in as system headers.
add_library(depth_settings INTERFACE)
target_compile_options(depth_settings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wnon-virtual-dtor -Woverloaded-virtual -Wshadow
  -fno-omit-frame-pointer
  # An exported class may hold members of hidden classes; hosts reach them through its functions only.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-attributes>)
target_compile_definitions(depth_settings INTERFACE
  BOOST_BIND_GLOBAL_PLACEHOLDERS
  $<$<BOOL:${DEPTH_CHECK_INVARIANTS}>:DEPTH_CHECK_INVARIANTS>)
target_include_directories(depth_settings INTERFACE "${PROJECT_SOURCE_DIR}/src")

if(DEPTH_SANITIZE)
  target_compile_options(depth_settings INTERFACE -fsanitize=${DEPTH_SANITIZE} -fno-sanitize-recover=all)
  target_link_options(depth_settings INTERFACE -fsanitize=${DEPTH_SANITIZE})
  if(DEPTH_SANITIZE MATCHES "thread")
    target_compile_options(depth_settings INTERFACE -Wno-error)
    target_compile_definitions(depth_settings INTERFACE DEPTH_THREAD_SANITIZER)
  endif()
  if(DEPTH_BUILD_FUZZERS)
    target_compile_options(depth_settings INTERFACE -fsanitize=fuzzer-no-link)
  endif()
endif()
