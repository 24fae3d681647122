# What `cmake --install` puts where, and the two packages that CPack makes of it: the host, and the
# libraries with their headers for programs that embed the module. ./package calls it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# --- the host -------------------------------------------------------------------------------------
set(doc ${CMAKE_INSTALL_DATADIR}/doc/promoter-desktop)
if(TARGET promoter-desktop)
  set(made ${CMAKE_BINARY_DIR}/installed)
  configure_file(packaging/promoter-desktop.1.in ${made}/promoter-desktop.1 @ONLY)
  install(TARGETS promoter-desktop RUNTIME COMPONENT host)
  install(FILES packaging/promoter-desktop.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT host)
  foreach(size 16 24 32 48 64 128)
    install(FILES resources/hicolor/${size}.png RENAME promoter-desktop.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps COMPONENT host)
  endforeach()
  install(FILES resources/promoter.png RENAME promoter-desktop.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/256x256/apps COMPONENT host)
  install(FILES ${made}/promoter-desktop.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT host)
  install(DIRECTORY demo/templates DESTINATION ${CMAKE_INSTALL_DATADIR}/promoter-desktop
    COMPONENT host)
  # As they lie here, since they point to each other.
  install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${doc} COMPONENT host)
  install(FILES demo/README.md DESTINATION ${doc}/demo COMPONENT host)
  install(DIRECTORY docs examples DESTINATION ${doc} COMPONENT host)
  # scripts/notices writes them; the licence is the owner's to give.
  install(FILES ${made}/THIRD-PARTY-NOTICES ${made}/copyright DESTINATION ${doc} COMPONENT host OPTIONAL)
endif()

# --- the libraries --------------------------------------------------------------------------------
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/DistPromoterProg)
# promoter_install_libraries(<export> <folder>...): those of one export need the same from outside.
function(promoter_install_libraries export)
  set(targets)
  foreach(folder ${ARGN})
    promoter_target_name(${folder} target)
    list(APPEND targets ${target})
  endforeach()
  install(TARGETS ${targets} EXPORT DistPromoterProg${export}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}/distpromoterprog COMPONENT dev)
  install(EXPORT DistPromoterProg${export} NAMESPACE DistPromoterProg::
    DESTINATION ${config} COMPONENT dev)
endfunction()
promoter_install_libraries(Module text calendar platform controls report screens host tools batch search
  editor module adapters/sqlite adapters/server demo)
promoter_install_libraries(Odbc adapters/odbc)
promoter_install_libraries(Xlsx adapters/xlsx)
if(TARGET promoter_adapters_qt)
  promoter_install_libraries(Qt adapters/qt)
endif()
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/distpromoterprog)
install(DIRECTORY src/ DESTINATION ${headers} COMPONENT dev FILES_MATCHING PATTERN "*.h"
  PATTERN adapters/windows EXCLUDE)
install(DIRECTORY demo DESTINATION ${headers} COMPONENT dev FILES_MATCHING PATTERN "*.h"
  PATTERN sqlserver EXCLUDE PATTERN templates EXCLUDE)
configure_package_config_file(packaging/DistPromoterProgConfig.cmake.in
  ${CMAKE_BINARY_DIR}/installed/DistPromoterProgConfig.cmake INSTALL_DESTINATION ${config})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/installed/DistPromoterProgConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/installed/DistPromoterProgConfig.cmake
  ${CMAKE_BINARY_DIR}/installed/DistPromoterProgConfigVersion.cmake
  DESTINATION ${config} COMPONENT dev)
install(DIRECTORY examples/embed-cpp COMPONENT dev
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libdistpromoterprog-dev/examples)
install(FILES CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libdistpromoterprog-dev COMPONENT dev)
install(FILES ${CMAKE_BINARY_DIR}/installed/copyright COMPONENT dev OPTIONAL
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libdistpromoterprog-dev)

# --- Debian's packages ----------------------------------------------------------------------------
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_VENDOR DistPromoterProg)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL host dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(PROMOTER_MAINTAINER "DistPromoterProg <root@localhost>" CACHE STRING "Who answers for the packages")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${PROMOTER_MAINTAINER})
set(CPACK_DEBIAN_HOST_PACKAGE_NAME promoter-desktop)
set(CPACK_DEBIAN_HOST_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_HOST_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_HOST_PACKAGE_RECOMMENDS "qt6-translations-l10n, tdsodbc")
set(CPACK_COMPONENT_HOST_DESCRIPTION "promoter programs of a sales office
Plans which sales promoter visits which customer on which day, in Persian and with Solar Hijri
dates: on SQL Server, or on an embedded database with a sample office.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libdistpromoterprog-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS libsqlite3-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "qt6-base-dev, unixodbc-dev, libxlsxwriter-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION "promoter programs of a sales office, to be embedded in C++
Static libraries, headers and CMake targets: find_package(DistPromoterProg).")
include(CPack)
