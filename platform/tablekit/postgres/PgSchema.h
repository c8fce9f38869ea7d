#pragma once
// The reference schema for a PostgreSQL server, made from data/schema.sql so that the two backends
// never hold different tables: keys become identity columns, texts citext (compared ignoring case,
// as Access and the SQLite schema's COLLATE NOCASE compare them, LIKE included), reals double
// precision, integers bigint (SQLite's have 64 bits). The result begins by creating the citext
// extension; it is one script of several statements, for a tool that runs scripts (psql, PQexec),
// not for CADODatabase::Execute.

#include <string>

#include "QKExport.h"

namespace tablekit {

QK_EXPORT std::string PostgresSchema(const std::string& sqliteSchema);
// The same rewriting of column forms, for any script written for SQLite, without the extension.
QK_EXPORT std::string PostgresStatements(const std::string& sqliteSql);

}  // namespace tablekit
