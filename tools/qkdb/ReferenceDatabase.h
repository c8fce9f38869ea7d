#pragma once
// The reference database the qkdb commands work on, and the binding of every record class to the
// tables of the shipped schema (data/schema.sql).
//
// Which database: the --db option when given, else the environment variable QKDB_DATABASE when set
// and not empty, else the file the build made with `qkdb init` (reference.db in the build folder).

#include <string>

namespace qkdb {

// The compiled-in default: where `qkdb init` writes when told nothing else.
std::string DefaultDatabasePath();
// option when not empty, else QKDB_DATABASE, else the default.
std::string ChooseDatabase(const std::string& option);
// Tells every record class its table in the database at path (a file, or a postgresql:// URI).
void BindRecordClasses(const std::string& path);
// Lets every record class's connection commit without waiting for the disk (PRAGMA synchronous =
// OFF). Only for a file that is thrown away unless it is flushed and kept at the end: qkdb init.
void WriteWithoutWaiting();
// A backend's message as one line: its line breaks and the blanks around them become one space, and
// none is left at the end (PostgreSQL's messages span lines).
std::string OneLine(const std::string& message);
// "" when path is a server URI or an existing SQLite file, else one line saying what is wrong (missing
// file, not a database). Reads only the file's first bytes: no lock is needed.
std::string NotADatabase(const std::string& path);
// For the commands that read: "" when path is a server URI or an existing SQLite file that holds the
// shipped tables, else one line saying what is wrong (missing file, not a database, tables missing).
// Binds the record classes when the database can be used.
std::string OpenForReading(const std::string& path);

}  // namespace qkdb
