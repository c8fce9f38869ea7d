#pragma once
// The reference database the qkdb commands work on, and the binding of every record class to the
// tables of the shipped schema (data/schema.sql).
//
// Which database: the --db option when given, else the environment variable QKDB_DATABASE when set
// and not empty, else the shipped one, found relative to qkdb itself: share/QKModelDataBase/reference.db
// beside an installed bin/qkdb, or in the build tree the one the build made (build/<preset>/share/…).
// No path is fixed at build time, so an installed, packaged or copied tree works where it lands.

#include <filesystem>
#include <memory>
#include <string>

class CADODatabase;

namespace qkdb {

class SharedConnection;

// The folder of the shipped database and data: share/QKModelDataBase found relative to this
// executable (installed: ../share; build tree: ../../share), looked for once per process. When
// neither exists, the installed place, for messages that say where it was looked for.
std::filesystem::path ShareFolder();
// ShareFolder()/reference.db: the database read, and written by `qkdb init`, when told nothing else.
std::string DefaultDatabasePath();
// ShareFolder()/data: schema.sql, the CSV files and SOURCES.md that `qkdb init` reads.
std::string DefaultDataFolder();
// option when not empty, else QKDB_DATABASE, else the default.
std::string ChooseDatabase(const std::string& option);
// Checks that the open connection db holds every table of the reference schema; throws DataError
// naming the first it lacks.
void RequireReferenceTables(CADODatabase& db);
// A backend's message as one line: its line breaks and the blanks around them become one space, and
// none is left at the end (PostgreSQL's messages span lines).
std::string OneLine(const std::string& message);
// "" when path is a server URI or an existing SQLite file, else one line saying what is wrong (missing
// file, not a database). Reads only the file's first bytes: no lock is needed.
std::string NotADatabase(const std::string& path);
// For a program that lets each record class keep its own connection (the Python package): "" when
// path is a server URI or an existing SQLite file that holds the shipped tables, else one line saying
// what is wrong (missing file, not a database, tables missing). Binds the record classes
// (QKReferenceDatabase::Bind) when the database can be used.
std::string OpenForReading(const std::string& path);

// The database a reading command (weather, tree, walls, materials, rooms, export) works on, opened
// once: while this object lives every record class reads through its one connection
// (SharedConnection), rather than each opening the file again.
class CommandDatabase {
 public:
  CommandDatabase();
  ~CommandDatabase();
  CommandDatabase(const CommandDatabase&) = delete;
  CommandDatabase& operator=(const CommandDatabase&) = delete;

  // "" when path is a server URI or an existing SQLite file that holds the shipped tables, the record
  // classes then bound to it; else one line saying what is wrong (missing file, not a database,
  // tables missing), and nothing bound.
  std::string Open(const std::string& path);

 private:
  std::unique_ptr<CADODatabase> m_db;
  std::unique_ptr<SharedConnection> m_shared;  // given back before m_db closes
};

}  // namespace qkdb
