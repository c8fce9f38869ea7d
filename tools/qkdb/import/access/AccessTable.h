#pragma once
// AccessTable: one table of an AccessFile, read row by row as typed values. It owns the mdbtools
// table definition; the AccessFile it came from must outlive it.
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
#include <string>
#include <variant>
#include <vector>

struct S_MdbTableDef;

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

class AccessTable {
 public:
  // Takes over table, whose columns have been read. Throws DataError naming a column whose Access
  // type this reader does not know.
  explicit AccessTable(S_MdbTableDef* table);
  ~AccessTable();
  AccessTable(AccessTable&& other) noexcept;
  AccessTable(const AccessTable&) = delete;
  AccessTable& operator=(const AccessTable&) = delete;
  AccessTable& operator=(AccessTable&&) = delete;

  const std::string& Name() const { return m_name; }
  const std::vector<AccessColumn>& Columns() const { return m_columns; }
  // The row count the table's definition records; a complete read gives as many rows.
  std::int64_t RecordedRows() const;
  // Reads the next row into row (one value per column); false after the last row. Throws DataError
  // when a field points outside its page or a long value cannot be followed (a damaged file).
  bool Next(std::vector<AccessValue>& row);

 private:
  AccessValue Field(int column, int start, int size, bool null) const;
  std::string LongValue(int start, int size) const;
  std::string Text(const char* bytes, std::size_t size) const;

  S_MdbTableDef* m_table;
  std::string m_name;
  std::vector<AccessColumn> m_columns;
};

}  // namespace qkdb
