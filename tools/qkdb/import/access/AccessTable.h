#pragma once
// AccessTable: one table of an AccessFile, read row by row as typed values (the types in
// AccessReader.h). It owns the mdbtools table definition; the AccessFile it came from must outlive it.

#include <cstdint>
#include <string>
#include <vector>

#include "import/access/AccessReader.h"

struct S_MdbTableDef;

namespace qkdb {

class AccessTable final : public AccessRows {
 public:
  // Takes over table, whose columns have been read. Throws DataError naming a column whose Access
  // type this reader does not know.
  explicit AccessTable(S_MdbTableDef* table);
  ~AccessTable() override;
  AccessTable(const AccessTable&) = delete;
  AccessTable& operator=(const AccessTable&) = delete;

  const std::string& Name() const override { return m_name; }
  const std::vector<AccessColumn>& Columns() const override { return m_columns; }
  std::int64_t RecordedRows() const override;
  bool Next(std::vector<AccessValue>& row) override;

 private:
  AccessValue Field(int column, int start, int size, bool null) const;
  std::string LongValue(int start, int size) const;
  std::string Text(const char* bytes, std::size_t size) const;

  S_MdbTableDef* m_table;
  std::string m_name;
  std::vector<AccessColumn> m_columns;
};

}  // namespace qkdb
