# Debian packages (`cpack -G DEB` in the build folder), one per install component:
#   qkmodeldatabase      the library, qkdb and the reference database with its data
#   qkmodeldatabase-dev  the headers, the CMake package and the pkg-config file
# The runtime package's dependencies are read from the binaries (dpkg-shlibdeps).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qkmodeldatabase)
set(CPACK_PACKAGE_VENDOR "QKModelDataBase developers")
set(CPACK_PACKAGE_CONTACT "QKModelDataBase developers <qkmodeldatabase@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
  "Reference database of a building thermal-load design system: design weather, envelopes, walls, room loads")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
# Without the debugging information of a RelWithDebInfo build: 18 MB of the runtime package.
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME qkmodeldatabase)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION science)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME qkmodeldatabase-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qkmodeldatabase (= ${PROJECT_VERSION})")
include(CPack)
