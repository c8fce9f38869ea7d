#include "exchange/StoredRows.h"

#include "mfc/CString.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/tagDBSTRUCT.h"
#include "text/CsvTable.h"

namespace qkdb {

std::vector<std::vector<std::string>> StoredRows(tagDBSTRUCT& record, const std::string& sql) {
  CADORecordset rs;
  if (!record.ExecSql(CString::FromUtf8(sql), &rs, nullptr)) throw DataError("cannot read the database: " + sql);
  std::vector<std::vector<std::string>> rows;
  for (; !rs.IsEOF(); rs.MoveNext()) {
    std::vector<std::string>& row = rows.emplace_back();
    for (int c = 0; c < rs.GetFieldCount(); ++c) {
      CString value;
      rs.GetFieldValue(c, value);
      row.push_back(value.ToUtf8());
    }
  }
  return rows;
}

}  // namespace qkdb
