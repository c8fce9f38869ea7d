#pragma once
// The rows of the reference database from the CSV files of data/: places and weather, city aliases,
// the envelope catalogue, room types and uses, their hourly schedules. Written through the record
// classes where the library has one, and through SideRows for the tables beside the library's.
//
// Every row goes through the caller's connection db: the record classes are pointed at it
// (SharedConnection) for the length of the load, so a transaction the caller has begun on db holds
// the whole build, and a failure leaves the database as the caller's rollback finds it.

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

class CADODatabase;

namespace qkdb {

// Fills the empty tables of db (open, holding the tables of schema.sql; path is what it was opened
// on). Throws DataError for data that cannot be used or a row that cannot be written.
void LoadReference(const std::filesystem::path& dataDir, CADODatabase& db, const std::string& path);
// The number of rows of every table, in the order of the build's report.
std::vector<std::pair<std::string, long>> CountRows(CADODatabase& db);
// The report of a build: one line per table, "  <table> <rows>".
void PrintCounts(const std::vector<std::pair<std::string, long>>& counts);

}  // namespace qkdb
