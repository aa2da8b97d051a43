# cmake --install: the module with its version and soname, the public
# headers, corvinel-fmt and its manual page, a CMake package giving
# corvinel::corvinel, and corvinel.pc for pkg-config.
include(CMakePackageConfigHelpers)

set(CORVINEL_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/corvinel")

install(TARGETS corvinel EXPORT corvinelTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/corvinel"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(TARGETS corvinel-fmt RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${PROJECT_SOURCE_DIR}/docs/corvinel-fmt.1"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")

install(EXPORT corvinelTargets NAMESPACE corvinel:: DESTINATION "${CORVINEL_CMAKE_DIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/corvinelConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/corvinelConfig.cmake" INSTALL_DESTINATION "${CORVINEL_CMAKE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/corvinelConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/corvinelConfig.cmake"
  "${PROJECT_BINARY_DIR}/corvinelConfigVersion.cmake" DESTINATION "${CORVINEL_CMAKE_DIR}")

# corvinel.pc names the prefix given at install time (cmake --install
# --prefix), so it is written then rather than at configure time.
install(CODE "
  set(CMAKE_INSTALL_PREFIX \"\${CMAKE_INSTALL_PREFIX}\")
  set(CMAKE_INSTALL_LIBDIR \"${CMAKE_INSTALL_LIBDIR}\")
  set(CMAKE_INSTALL_INCLUDEDIR \"${CMAKE_INSTALL_INCLUDEDIR}\")
  set(PROJECT_VERSION \"${PROJECT_VERSION}\")
  configure_file(\"${PROJECT_SOURCE_DIR}/cmake/corvinel.pc.in\"
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig/corvinel.pc\" @ONLY)
  message(STATUS \"Installing: \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig/corvinel.pc\")
")
