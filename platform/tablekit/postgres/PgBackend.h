#pragma once
// The library's side of the PostgreSQL backend: recognising a server URI and opening a connection
// through the module postgresql (PgConnection, linked to libpq), which is loaded on the first URI
// opened (ModuleLoader.h). A program that only ever opens SQLite files never loads libpq.

#include <memory>
#include <string>

class CADOConnection;

namespace tablekit {

// True when path names a server ("postgresql://" or "postgres://") rather than a file.
bool IsPostgresUri(const std::string& pathUtf8);

// The open connection, or null with one line in error: the server's reason, or why the module
// cannot be loaded (not installed, libpq missing). user and password fill in what the URI leaves out.
std::unique_ptr<CADOConnection> OpenPostgres(const std::string& uri, const std::string& user,
                                             const std::string& password, std::string& error);

}  // namespace tablekit
