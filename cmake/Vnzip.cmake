# Vnzip.dll, the library beside the program that makes zip archives. The program opens it when it is needed, and knows
# its interface alone.
set(reach "${CMAKE_BINARY_DIR}/reach/vnzip")
file(MAKE_DIRECTORY "${reach}")
file(CREATE_LINK "${CMAKE_SOURCE_DIR}/src/vnzip" "${reach}/vnzip" SYMBOLIC)
add_library(vnzip_interface INTERFACE)
target_include_directories(vnzip_interface INTERFACE "${reach}")

file(GLOB vnzip_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/vnzip/*.cpp")
set(platform_sources attributes posix/dos_attributes posix/shared_library posix/posix_error posix/temp_file posix/tree_walk
  posix/mount_table posix/workers)
list(TRANSFORM platform_sources REPLACE "(.+)" "${CMAKE_SOURCE_DIR}/src/platform/\\1.cpp")
add_library(vnzip SHARED ${vnzip_sources} ${platform_sources})
set_target_properties(vnzip PROPERTIES PREFIX "" OUTPUT_NAME Vnzip SUFFIX ".dll" CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
target_include_directories(vnzip PRIVATE "${CMAKE_BINARY_DIR}/reach/platform" ${MOUNT_INCLUDE_DIRS})
target_link_libraries(vnzip PRIVATE vnzip_interface varnholt_flags PkgConfig::DEFLATE PkgConfig::ZLIB Threads::Threads
  ${CMAKE_DL_LIBS})
target_link_options(vnzip PRIVATE -Wl,--no-undefined)
install(TARGETS vnzip LIBRARY DESTINATION lib/varnholt)
