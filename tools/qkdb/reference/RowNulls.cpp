#include "reference/RowNulls.h"

#include "text/CsvTable.h"
#include "mfc/CString.h"
#include "tablekit/CADODatabase.h"

namespace qkdb {

void CheckWritten(bool ok, const std::string& what) {
  if (!ok) throw DataError("cannot write " + what);
}

void ClearColumns(CADODatabase& db, const std::string& table, long id, const std::vector<std::string>& columns) {
  if (columns.empty()) return;
  std::string sql = "UPDATE " + table + " SET ";
  for (std::size_t i = 0; i < columns.size(); ++i) sql += (i ? ", " : "") + columns[i] + " = NULL";
  sql += " WHERE ID = " + std::to_string(id);
  if (!db.Execute(CString::FromUtf8(sql)))
    throw DataError("cannot clear the columns not given in " + table + " row " + std::to_string(id) + ": " +
                    db.GetLastError().ToUtf8());
}

}  // namespace qkdb
