#include "foundation/QKRecordVerbs.h"

#include <new>

#include "datakit/CADataProp.h"
#include "foundation/CQKDataProp.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/RvAfxMessageBox.h"

namespace QKRecordVerbs {

CADODatabase* OpenOnDemand(CADODatabase*& connection, const CString& path) {
  if (connection == nullptr) connection = new (std::nothrow) CADODatabase;
  if (connection != nullptr && !connection->IsOpen()) connection->OpenAccess(path, L"", L"");
  return connection;
}

void ReadItems(CADORecordset& rs, CAData& value) {
  CQKDataProp row(&rs);
  value.DataInPro(CADataExchange(CADataProp<CQKDataProp>(&row)));
}

void WriteItems(CADORecordset& rs, CAData& value) {
  CQKDataProp row(&rs);
  value.DataOutPro(CADataExchange(CADataProp<CQKDataProp>(&row)));
}

void ReadKey(tagDBSTRUCT& record, const wchar_t* sql, CADODatabase* db) {
  CADORecordset rs;
  if (!record.ExecSql(sql, &rs, db)) return;
  long id = record.GetID();
  if (rs.GetFieldValue(L"ID", id)) record.SetID(id);
  rs.Close();
}

long FirstId(const wchar_t* sql, CADODatabase* db) {
  if (db == nullptr) return -1;
  CADORecordset rs;
  if (!rs.Open(db->GetActiveConnection(), db->GetActiveAdoap(), db->GetCurrentConnectType(), sql, 0)) return -1;
  long id = 0;
  if (!rs.IsEOF()) rs.GetFieldValue(L"ID", id);
  return id;
}

long FirstIdByName(const CString& table, const wchar_t* name, CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where Name=\"%s\"", table.GetString(), name ? name : L"");
  return FirstId(sql, db);
}

long CountKeyRows(tagDBSTRUCT& record, const wchar_t* sql, CADODatabase* db) {
  CADORecordset rs;
  if (!record.ExecSql(sql, &rs, db)) return -1;
  const long rows = static_cast<long>(rs.GetRecordCount());
  long id = record.GetID();
  if (rows == 1 && rs.GetFieldValue(L"ID", id)) record.SetID(id);
  return rows;
}

CString DeleteFailedText(const CString& table) {
  CString text;
  text.Format(L"删除表 \"%s\" 时出错!", table.GetString());
  return text;
}

int DeleteRowOrTell(tagDBSTRUCT& record, const CString& table, long id, CADODatabase* db, unsigned int style) {
  CString sql;
  sql.Format(L"delete from %s where Id=%d", table.GetString(), static_cast<int>(id));
  if (db != nullptr && record.ExecSql(sql, nullptr, db)) return 1;
  RvAfxMessageBox(DeleteFailedText(table), style);
  return 0;
}

}  // namespace QKRecordVerbs
