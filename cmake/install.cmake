# Two components: the libraries, and what is needed to compile against them. There is one development link, libsmxpx.so
# (px is the code of the generic target); find_package and pkg-config spell the name for their users.
include(CMakePackageConfigHelpers)
set(smx_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/smx)

install(
  TARGETS smxpx smkcore
  EXPORT smx
  LIBRARY COMPONENT smx_runtime NAMELINK_COMPONENT smx_development)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/smx/include/ ${PROJECT_SOURCE_DIR}/smk/
  DESTINATION ${SMX_INSTALL_INCLUDEDIR}
  COMPONENT smx_development
  FILES_MATCHING PATTERN *.h)

# find_package(smx): the library is complete, so its user needs no OpenMP.
install(EXPORT smx NAMESPACE smx:: FILE smx-config.cmake DESTINATION ${smx_cmake_dir} COMPONENT smx_development)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/smx-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/smx-config-version.cmake DESTINATION ${smx_cmake_dir} COMPONENT smx_development)

# pkg-config: the prefix is found from the file's own place, so the tree may be moved, or installed with --prefix.
set(smx_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(smx_pc_prefix ${CMAKE_INSTALL_PREFIX})
else()
  file(RELATIVE_PATH smx_pc_up /${smx_pc_dir} /)
  string(REGEX REPLACE "/$" "" smx_pc_up ${smx_pc_up})
  set(smx_pc_prefix "\${pcfiledir}/${smx_pc_up}")
endif()
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE smx_pc_libdir)
cmake_path(ABSOLUTE_PATH SMX_INSTALL_INCLUDEDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE smx_pc_includedir)
configure_file(${CMAKE_CURRENT_LIST_DIR}/smx.pc.in ${PROJECT_BINARY_DIR}/smx.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/smx.pc DESTINATION ${smx_pc_dir} COMPONENT smx_development)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT smx_runtime)
