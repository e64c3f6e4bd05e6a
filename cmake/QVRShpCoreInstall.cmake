# What an installed library consists of: library, headers, CMake package, pkg-config file.
set(QVRShpCore_header_dir ${CMAKE_INSTALL_INCLUDEDIR}/QVRShpCore)
set(QVRShpCore_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QVRShpCore)
set(QVRShpCore_pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

target_include_directories(QVRShpCore INTERFACE $<INSTALL_INTERFACE:${QVRShpCore_header_dir}>)

install(TARGETS QVRShpCore EXPORT QVRShpCoreTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${QVRShpCore_headers} DESTINATION ${QVRShpCore_header_dir})

install(EXPORT QVRShpCoreTargets NAMESPACE QVRShpCore:: DESTINATION ${QVRShpCore_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QVRShpCoreConfigVersion.cmake COMPATIBILITY SameMajorVersion)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QVRShpCoreConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/QVRShpCoreConfig.cmake
                              INSTALL_DESTINATION ${QVRShpCore_package_dir})
install(FILES ${PROJECT_BINARY_DIR}/QVRShpCoreConfig.cmake ${PROJECT_BINARY_DIR}/QVRShpCoreConfigVersion.cmake
        DESTINATION ${QVRShpCore_package_dir})

# The prefix is told from where the .pc file lies, so that an installation can be moved or be installed elsewhere than
# it was configured for. An absolute library directory is where it is.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(QVRShpCore_pc_prefix ${CMAKE_INSTALL_PREFIX})
  set(QVRShpCore_pc_libdir ${CMAKE_INSTALL_LIBDIR})
else()
  string(REGEX REPLACE "[^/]+" ".." QVRShpCore_pc_prefix ${QVRShpCore_pkgconfig_dir})
  set(QVRShpCore_pc_prefix "\${pcfiledir}/${QVRShpCore_pc_prefix}")
  set(QVRShpCore_pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE ${CMAKE_INSTALL_INCLUDEDIR})
  set(QVRShpCore_pc_includedir ${QVRShpCore_header_dir})
else()
  set(QVRShpCore_pc_includedir "\${prefix}/${QVRShpCore_header_dir}")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/QVRShpCore.pc.in ${PROJECT_BINARY_DIR}/QVRShpCore.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/QVRShpCore.pc DESTINATION ${QVRShpCore_pkgconfig_dir})
