# What `cmake --install` puts under the prefix (GNUInstallDirs):
#   lib/libQKModelDataBase.so.0.2.0 with its SONAME link (runtime) and the .so link (development)
#   lib/QKModelDataBase/   the modules loaded when first needed: postgresql.so (the PostgreSQL backend,
#   linked to libpq) and qkdb-access.so (qkdb's Access reader, linked to mdbtools) (runtime; qk_module)
#   include/QKModelDataBase/<folder>/<Class>.h   the public headers, folders kept (development)
#   lib/cmake/QKModelDataBase/   the CMake package QKModelDataBase::QKModelDataBase (development)
#   lib/pkgconfig/QKModelDataBase.pc (development)
#   bin/qkdb (runtime)
#   share/QKModelDataBase/reference.db and share/QKModelDataBase/data/ (schema.sql, the CSV files,
#   SOURCES.md) (runtime)
#   share/doc/QKModelDataBase/   the README and the docs a host needs (development)
include(CMakePackageConfigHelpers)

# The public headers: every header of the library's folders but the project's own internals (the list
# of record classes, the record verbs they share, the UTF conversions, the database backends and
# what the library hands them, the loading of modules).
set(QK_INTERNAL_HEADERS
  binding/ReferenceTables.h
  foundation/QKRecordVerbs.h
  platform/mfc/Utf.h
  platform/tablekit/reads/BoundSql.h
  platform/tablekit/reads/ReadScope.h
  platform/tablekit/sqlite/StatementCache.h
  platform/tablekit/CADOConnection.h
  platform/tablekit/FieldValue.h
  platform/tablekit/ModuleLoader.h
  platform/tablekit/postgres/PgBackend.h
  platform/tablekit/postgres/PgModule.h)
foreach(folder foundation geography weather envelope construction rooms binding platform)
  file(GLOB_RECURSE headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
  foreach(header ${headers})
    if(header IN_LIST QK_INTERNAL_HEADERS OR header MATCHES "^platform/tablekit/(sqlite|postgres)/.*Connection\\.h$")
      continue()
    endif()
    # platform/mfc/CString.h is included as "mfc/CString.h": the platform folder is an include root.
    string(REGEX REPLACE "^platform/" "" installed ${header})
    get_filename_component(subfolder ${installed} DIRECTORY)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/QKModelDataBase/${subfolder}
            COMPONENT development)
  endforeach()
endforeach()

install(TARGETS QKModelDataBase EXPORT QKModelDataBaseTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development)
install(EXPORT QKModelDataBaseTargets NAMESPACE QKModelDataBase::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QKModelDataBase COMPONENT development)
configure_package_config_file(cmake/QKModelDataBaseConfig.cmake.in
  ${PROJECT_BINARY_DIR}/QKModelDataBaseConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QKModelDataBase PATH_VARS CMAKE_INSTALL_DATADIR)
# 0.x: a minor version may change the interface, so 0.2 accepts 0.2.x only.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QKModelDataBaseConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QKModelDataBaseConfig.cmake ${PROJECT_BINARY_DIR}/QKModelDataBaseConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QKModelDataBase COMPONENT development)

# pkg-config: the prefix is found from the .pc file's own place, so an installed tree can be moved
# (a package unpacked into a scratch root, `cmake --install --prefix` after configuring).
file(RELATIVE_PATH QK_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" QK_PC_TO_PREFIX "${QK_PC_TO_PREFIX}")
configure_file(cmake/QKModelDataBase.pc.in ${PROJECT_BINARY_DIR}/QKModelDataBase.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/QKModelDataBase.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

install(FILES README.md docs/host-guide.md docs/faults.md docs/reference-data.md docs/weather.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
