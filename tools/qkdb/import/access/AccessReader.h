#pragma once
// AccessReader: what import-access sees of an Access database (.mdb from Jet 3 and 4, .accdb from
// Access 2007 on) read with mdbtools. The reader (AccessFile, AccessTable) lives in the module
// qkdb-access, linked to mdbtools and glib, which OpenAccessFile loads on first use: the other commands
// never load them. The command calls it only in a child process (ChildProcess.h), as mdbtools can
// crash on a damaged file.
//
// Each Access column type becomes the value SQLite stores best:
//   Yes/No                        -> integer 0 or 1
//   Byte, Integer, Long Integer   -> integer
//   Single, Double                -> real (a Single as the shortest decimal that reads back as it,
//                                    so 0.05 stays 0.05 rather than 0.0500000007450581)
//   Currency, Decimal             -> the exact decimal text ("17.45", "18"), for a NUMERIC column
//   Date/Time                     -> text "YYYY-MM-DD HH:MM:SS", computed here from the stored day
//                                    count, for every date Access allows (years 100 to 9999)
//   Text, Memo                    -> UTF-8 text, memos in full whatever their length
//   Replication ID                -> text "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}"
//   Binary, OLE Object            -> the stored bytes
// A null field is null; an empty text is "", not null.

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace qkdb {

// How SQLite should keep a column: its declared type in the new table.
enum class Affinity { Integer, Real, Numeric, Text, Blob };

struct AccessColumn {
  std::string name;
  Affinity affinity;
};

// A blob: bytes, not text.
struct Bytes {
  std::string data;
};

// One field: null, an integer, a real, text (Numeric and Text columns alike) or bytes.
using AccessValue = std::variant<std::monostate, std::int64_t, double, std::string, Bytes>;

// One table, read row by row as typed values. The AccessReader it came from must outlive it.
class AccessRows {
 public:
  virtual ~AccessRows() = default;
  virtual const std::string& Name() const = 0;
  virtual const std::vector<AccessColumn>& Columns() const = 0;
  // The row count the table's definition records; a complete read gives as many rows.
  virtual std::int64_t RecordedRows() const = 0;
  // Reads the next row into row (one value per column); false after the last row. Throws DataError
  // when a field points outside its page or a long value cannot be followed (a damaged file).
  virtual bool Next(std::vector<AccessValue>& row) = 0;
};

// One Access file open for reading.
class AccessReader {
 public:
  virtual ~AccessReader() = default;
  // The names of the tables the file's users made, in catalogue order (system tables left out).
  virtual const std::vector<std::string>& UserTables() const = 0;
  // The table of that exact name, ready to read from its first row. Throws DataError when its
  // definition cannot be read, or names a column type this reader does not know.
  virtual std::unique_ptr<AccessRows> OpenTable(const std::string& name) const = 0;
};

// Opens path and reads its catalogue, through the module qkdb-access. Throws DataError when the module
// cannot be loaded, or the file cannot be opened or its catalogue cannot be read in full.
std::unique_ptr<AccessReader> OpenAccessFile(const std::string& path);

// What the module offers: the reader of path, owned by the caller, or null with the reason in error.
using AccessOpenFunction = AccessReader* (*)(const std::string& path, std::string& error);
inline constexpr const char* kAccessOpenSymbol = "QKOpenAccessFile";

}  // namespace qkdb
