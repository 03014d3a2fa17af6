# Installed: the three libraries with their headers, tarnview, and a package
# configuration that gives TarnOI::TarnOI, TarnOI::Host and TarnOI::IO.
include(CMakePackageConfigHelpers)

install(TARGETS TarnOI TarnOIHost TarnOIIO EXPORT TarnOITargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(folder host nodes io)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/${folder}"
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TarnOI FILES_MATCHING PATTERN "*.h")
  install(DIRECTORY "${PROJECT_BINARY_DIR}/generated/${folder}"
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TarnOI FILES_MATCHING PATTERN "*.h")
endforeach()
if(TARGET tarnview)
  install(TARGETS tarnview RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/TarnOI)
install(EXPORT TarnOITargets NAMESPACE TarnOI:: DESTINATION ${package_folder})
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/TarnOIConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/TarnOIConfig.cmake" INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TarnOIConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TarnOIConfig.cmake"
  "${PROJECT_BINARY_DIR}/TarnOIConfigVersion.cmake" DESTINATION ${package_folder})
