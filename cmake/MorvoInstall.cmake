# Installs the library as a CMake package: find_package(Morvo) gives Morvo::library.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

get_property(library_targets GLOBAL PROPERTY MORVO_LIBRARY_TARGETS)
install(TARGETS ${library_targets} morvo_library EXPORT MorvoTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/library/morvo.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/morvo)
install(EXPORT MorvoTargets NAMESPACE Morvo::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Morvo)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/MorvoConfig.cmake.in
  ${PROJECT_BINARY_DIR}/MorvoConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Morvo)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/MorvoConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/MorvoConfig.cmake ${PROJECT_BINARY_DIR}/MorvoConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Morvo)
if(MORVO_BUILD_TOOLS)
  install(TARGETS morvo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
